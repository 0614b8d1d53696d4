' When the right side fails, or the value doesn't fit, the target keeps its value.
'> 3 3
Sub main()
    Dim n As Integer, zero As Long
    n = 3
    On Error Resume Next
    n = 1 \ zero
    Debug.Print n & " ";
    n = 100000
    Debug.Print n & ""
End Sub
