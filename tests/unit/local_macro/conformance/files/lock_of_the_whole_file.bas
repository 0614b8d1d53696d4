' Without a range Lock takes the whole file.
'! 70 Permission denied
Sub main()
    Dim b As Byte
    Open "C:\b" For Binary As #1
    Open "C:\b" For Binary As #2
    Lock #1
    Put #2, 100, b
End Sub
