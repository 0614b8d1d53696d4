' A Sub can't stand in an expression.
'? 6:9 Expected: function or variable
Sub work()
End Sub
Sub main()
    x = work()
End Sub
