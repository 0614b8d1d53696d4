' The letter O may be left out; behind an operand the sign & joins instead.
'> 15
'> 5517
Sub main()
    x = &17
    Debug.Print "" & x
    n = 55
    Debug.Print n &17
End Sub
