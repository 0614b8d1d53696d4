' The same for line numbers.
'? 4:5 Label not defined: 100
Sub main()
    GoSub 100
End Sub
