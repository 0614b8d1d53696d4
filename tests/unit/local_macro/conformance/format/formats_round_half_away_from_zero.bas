' Unlike the conversions, Format rounds a half up, seen on fifteen digits.
'> 3 -3 0.13 1.01 2
Sub main()
    Debug.Print Format(2.5, "0") & " " & Format(-2.5, "0") & " " & Format(0.125, "0.00") & " " & Format(1.005, "0.00") & _
        " " & Format(1.5, "0")
End Sub
