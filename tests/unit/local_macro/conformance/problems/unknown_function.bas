' The same for a function within an expression.
'? 4:9 Sub or Function not defined: Compute
Sub main()
    x = Compute(5)
End Sub
