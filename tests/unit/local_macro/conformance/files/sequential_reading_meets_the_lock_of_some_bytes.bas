' A lock of some bytes lets the lines in front of it be read.
'> one
'> 70
Sub main()
    Dim s As String
    Open "C:\t.txt" For Output As #1
    Print #1, "one"
    Print #1, "two"
    Close
    Open "C:\t.txt" For Input As #1
    Open "C:\t.txt" For Binary As #2
    Lock #2, 8 To 9
    Line Input #1, s
    Debug.Print s
    On Error Resume Next
    Line Input #1, s
    Debug.Print Err.Number & ""
End Sub
