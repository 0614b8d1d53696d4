' A file is used as it was opened: reading from an output, writing to an input and Get on either are error 54.
'> 54 54 54
Sub main()
    Dim s As String, t As String
    Open "C:\a.txt" For Output As #1
    On Error Resume Next
    Line Input #1, t
    s = Err.Number: Err.Clear
    Get #1, , t
    s = s & " " & Err.Number: Err.Clear
    Close #1
    Open "C:\a.txt" For Input As #1
    Print #1, "x"
    Debug.Print s & " " & Err.Number
End Sub
