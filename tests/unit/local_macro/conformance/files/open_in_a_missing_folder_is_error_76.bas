' Neither reading nor writing makes folders.
'! 76 Path not found
Sub main()
    Open "C:\none\a.txt" For Output As #1
End Sub
