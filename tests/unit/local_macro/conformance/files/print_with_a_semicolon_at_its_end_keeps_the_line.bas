' A trailing semicolon or comma keeps the line open, and the column counts on.
'> ab            c
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "a";
    Print #1, "b",
    Print #1, "c"
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
