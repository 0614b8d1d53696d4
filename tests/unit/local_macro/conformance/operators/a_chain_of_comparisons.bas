' Comparing goes from left to right: the first result, True or False, is compared with the next operand.
'> False
'> True
Sub main()
    Debug.Print 3 > 2 > 1
    Debug.Print 3 > 2 < 1
End Sub
