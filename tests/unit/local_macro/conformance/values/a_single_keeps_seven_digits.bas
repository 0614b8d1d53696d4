' A Single is shown with seven significant digits.
'> 0.3333333
'> 1.234568E+08
'> 1234567
Sub main()
    Dim s As Single
    s = 1 / 3
    Debug.Print "" & s
    s = 123456789
    Debug.Print "" & s
    s = 1234567
    Debug.Print "" & s
End Sub
