' Of a Single seven places are written out on either side of the point.
'> 0.25
'> 0.0000001
'> 1E+07
'> 8.333334E-02
Sub main()
    Dim s As Single
    s = 0.25
    Debug.Print "" & s
    s = 0.0000001
    Debug.Print "" & s
    s = 10000000
    Debug.Print "" & s
    s = 1 / 12
    Debug.Print "" & s
End Sub
