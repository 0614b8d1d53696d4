' Unlock needs exactly the range of an earlier Lock.
'! 70 Permission denied
Sub main()
    Open "C:\r" For Random As #1 Len = 4
    Lock #1, 1 To 3
    Unlock #1, 1 To 2
End Sub
