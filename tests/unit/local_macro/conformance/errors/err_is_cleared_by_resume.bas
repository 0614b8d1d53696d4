' Every Resume clears Err.
'> 11 0 []
Sub main()
    Dim s As String, zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Debug.Print s & " " & Err.Number & " [" & Err.Description & "]"
    Exit Sub
Failed:
    s = Err.Number
    Resume Next
End Sub
