' Attributes can't be changed while the file is open.
'! 55 File already open
Sub main()
    Open "C:\a.txt" For Output As #1
    SetAttr "C:\a.txt", vbReadOnly
End Sub
