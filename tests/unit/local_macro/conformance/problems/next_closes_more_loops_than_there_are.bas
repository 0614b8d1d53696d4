' Each variable behind Next closes one loop.
'? 5:13 Next without For
Sub main()
    For i = 1 To 3
    Next i, j
End Sub
