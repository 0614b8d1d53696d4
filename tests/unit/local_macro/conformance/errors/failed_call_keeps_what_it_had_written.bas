' What a procedure wrote by reference before it failed stays written.
'> 5 11
Sub Work(n As Long)
    Dim zero As Long
    n = 5
    zero = 1 \ zero
    n = 6
End Sub

Sub main()
    Dim n As Long
    On Error Resume Next
    Work n
    Debug.Print n & " " & Err.Number
End Sub
