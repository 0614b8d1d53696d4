' GetAttr adds up the attributes: a folder has 16, a read-only file 1.
'> 16 0 1
Sub main()
    MkDir "C:\d"
    Open "C:\a.txt" For Output As #1
    Close #1
    Debug.Print (GetAttr("C:\d") And vbDirectory) & " " & (GetAttr("C:\a.txt") And vbReadOnly) & " ";
    SetAttr "C:\a.txt", vbReadOnly
    Debug.Print (GetAttr("C:\a.txt") And vbReadOnly) & ""
End Sub
