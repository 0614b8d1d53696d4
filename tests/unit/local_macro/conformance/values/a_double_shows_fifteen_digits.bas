' A Double is shown with fifteen significant digits.
'> 0.333333333333333
'> 0.666666666666667
'> 0.3
'> 123456789012345
'> 1.23456789012346E+17
Sub main()
    Debug.Print "" & 1 / 3
    Debug.Print "" & 2 / 3
    Debug.Print "" & (0.1 + 0.2)
    Debug.Print "" & 123456789012345#
    Debug.Print "" & 123456789012345678#
End Sub
