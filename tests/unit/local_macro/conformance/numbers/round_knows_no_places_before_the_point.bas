' A negative number of places is error 5.
'! 5 Invalid procedure call or argument
Sub main()
    x = Round(1234, -2)
End Sub
