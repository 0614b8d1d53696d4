' A number stands for one file at a time.
'! 55 File already open
Sub main()
    Open "C:\a.txt" For Output As #1
    Open "C:\b.txt" For Output As #1
End Sub
