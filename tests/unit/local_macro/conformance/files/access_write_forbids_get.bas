' A Binary file that is open for writing alone can't be read.
'! 75 Path/File access error
Sub main()
    Dim n As Integer
    Open "C:\b" For Binary Access Write As #1
    Put #1, , n
    Get #1, 1, n
End Sub
