' A number reads what it has locked itself.
'> one
Sub main()
    Dim s As String
    Open "C:\t.txt" For Output As #1
    Print #1, "one"
    Close
    Open "C:\t.txt" For Input As #1
    Lock #1
    Line Input #1, s
    Debug.Print s
End Sub
