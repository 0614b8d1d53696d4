' The language's constants are no variables.
'? 4:5 Assignment to constant not permitted
Sub main()
    vbRed = 5
End Sub
