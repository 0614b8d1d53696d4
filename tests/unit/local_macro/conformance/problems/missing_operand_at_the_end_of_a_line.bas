' The end of a line behind an operator is the place of the mistake.
'? 4:12 Expected: expression
Sub main()
    x = 1 +
End Sub
