' Call needs parentheses around arguments and none without; a plain call the other way round.
'> 1 2
'> none
Sub Two(a, b)
    Debug.Print a & " " & b
End Sub

Sub None()
    Debug.Print "none"
End Sub

Sub main()
    Call Two(1, 2)
    Call None
End Sub
