' A Binary file that is open for reading alone can't be written.
'! 75 Path/File access error
Sub main()
    Open "C:\b" For Output As #1
    Close #1
    Open "C:\b" For Binary Access Read As #1
    Put #1, , 5
End Sub
