' IIf is a function like others: the part that isn't chosen is evaluated too.
'> yes no no
'! 11 Division by zero
Sub main()
    Debug.Print IIf(2 > 1, "yes", "no") & " " & IIf(0, "yes", "no") & " " & IIf(Null, "yes", "no")
    zero = 0
    x = IIf(zero = 0, 0, 1 / zero)
End Sub
