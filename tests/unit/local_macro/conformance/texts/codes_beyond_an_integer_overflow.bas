' Asc gives an Integer: a product that no Integer holds is an overflow.
'! 6 Overflow
Sub main()
    Debug.Print Asc("z") * 1000
End Sub
