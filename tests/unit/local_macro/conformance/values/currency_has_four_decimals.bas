' Currency counts in ten-thousandths, so that tenths add up exactly.
'> 0.3
'> True
'> 0.3333
Sub main()
    Dim a As Currency, b As Currency
    a = 0.1
    b = 0.2
    Debug.Print "" & (a + b)
    Debug.Print "" & (a + b = 0.3)
    a = 1
    b = 3
    a = a / b
    Debug.Print "" & a
End Sub
