' A file has to be closed before it can be deleted.
'! 55 File already open
Sub main()
    Open "C:\a.txt" For Output As #1
    Kill "C:\a.txt"
End Sub
