' Fifteen places in front of the point or behind it are written out, more need an exponent.
'> 100000000000000
'> 1E+15
'> 0.0001
'> 0.000000000000001
'> 1E-16
'> 8.33333333333333E-02
'> -3.33333333333333E-03
Sub main()
    Debug.Print "" & 1E14
    Debug.Print "" & 1E15
    Debug.Print "" & 0.0001
    Debug.Print "" & 1E-15
    Debug.Print "" & 1E-16
    Debug.Print "" & 1 / 12
    Debug.Print "" & -1 / 300
End Sub
