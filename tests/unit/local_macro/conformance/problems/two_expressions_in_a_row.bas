' A statement ends behind its expression.
'? 4:11 Expected: end of statement
Sub main()
    x = 1 2
End Sub
