' Conditions may use the arithmetic, comparison and logical operators with the usual precedence.
'> power minus divide whole rest sum join like
Sub main()
    Dim s As String
#If 2 ^ 3 = 8 And -2 ^ 2 = -4 Then
    s = s & " power"
#End If
#If 5 - 2 - 1 = 2 And --3 = 3 Then
    s = s & " minus"
#End If
#If 7 / 2 = 3.5 And 2 * 3 + 4 = 10 Then
    s = s & " divide"
#End If
#If 7 \ 2 = 3 Then
    s = s & " whole"
#End If
#If 7 Mod 4 = 3 And 9 \ 2 Mod 3 = 1 Then
    s = s & " rest"
#End If
#If 1 + 2 * (3 - 1) = 5 Then
    s = s & " sum"
#End If
#If "a" & 1 + 1 = "a2" Then
    s = s & " join"
#End If
#If "abc" Like "a?c" Then
    s = s & " like"
#End If
    Debug.Print Trim(s)
End Sub
