' A Single made a Double shows that its binary number isn't the decimal one.
'> 0.1 0.100000001490116
Sub main()
    Dim s As Single, d As Double
    s = 0.1
    d = s
    Debug.Print s & " " & d
End Sub
