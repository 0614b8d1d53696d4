' Output begins with an empty file each time.
'> new
'> True
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "old": Print #1, "older"
    Close #1
    Open "C:\a.txt" For Output As #1
    Print #1, "new"
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
    Debug.Print EOF(1)
End Sub
