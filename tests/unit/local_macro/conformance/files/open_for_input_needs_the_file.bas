' Reading needs a file that is there.
'! 53 File not found
Sub main()
    Open "C:\none.txt" For Input As #1
End Sub
