' A file that is open for Output or Append can't be opened under a second number.
'! 55 File already open
Sub main()
    Open "C:\a.txt" For Output As #1
    Open "C:\a.txt" For Input As #2
End Sub
