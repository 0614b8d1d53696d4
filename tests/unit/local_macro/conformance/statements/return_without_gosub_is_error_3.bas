' Return has nowhere to go back to unless GoSub came first.
'! 3 Return without GoSub
Sub main()
    Return
End Sub
