' The inner loop is closed first.
'? 6:10 Invalid Next control variable reference
Sub main()
    For i = 1 To 3
        For j = 1 To 3
    Next i, j
End Sub
