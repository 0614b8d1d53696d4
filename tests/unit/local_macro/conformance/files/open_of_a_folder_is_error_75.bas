' A folder can't be opened.
'! 75 Path/File access error
Sub main()
    MkDir "C:\d"
    Open "C:\d" For Output As #1
End Sub
