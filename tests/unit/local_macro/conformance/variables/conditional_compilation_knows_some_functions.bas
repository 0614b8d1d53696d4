' Abs, Sgn, Int, Fix, Len and the conversions are allowed in conditions.
'> all
Sub main()
#If Abs(-3) = 3 And Sgn(-5) = -1 And Int(-2.5) = -3 And Fix(-2.5) = -2 And Len("abc") = 3 And CInt("4") = 4 And CStr(5) = "5" And CBool(1) Then
    Debug.Print "all"
#End If
End Sub
