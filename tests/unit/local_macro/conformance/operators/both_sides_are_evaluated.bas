' And and Or don't stop early: the second operand's error counts.
'> False
'! 11 Division by zero
Sub main()
    zero = 0
    Debug.Print False And 1 = 2
    If False And 1 / zero = 1 Then Debug.Print "no"
End Sub
