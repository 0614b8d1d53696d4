' FormatNumber has two decimals, groups and a leading zero unless told otherwise.
'> 1,234.57 -1,234.57 0.50
'> 1,235 .5 (5) 1234.6
'> 12.0000
Sub main()
    Debug.Print FormatNumber(1234.567) & " " & FormatNumber(-1234.567) & " " & FormatNumber(0.5)
    Debug.Print FormatNumber(1234.567, 0) & " " & FormatNumber(0.5, 1, vbFalse) & " " & _
        FormatNumber(-5, 0, UseParensForNegativeNumbers:=vbTrue) & " " & FormatNumber(1234.56, 1, GroupDigits:=vbFalse)
    Debug.Print FormatNumber("12", 4)
End Sub
