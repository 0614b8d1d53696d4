' The value of a function can't be assigned to.
'? 4:5 Function call on left-hand side of assignment must return Variant or Object: Now
Sub main()
    Now = 5
End Sub
