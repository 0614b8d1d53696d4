' An open file can't be copied.
'! 70 Permission denied
Sub main()
    Open "C:\a.txt" For Output As #1
    FileCopy "C:\a.txt", "C:\b.txt"
End Sub
