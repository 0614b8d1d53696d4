' FormatPercent shows the number times a hundred.
'> 12.35% 50% -5.0% 1,234.00%
Sub main()
    Debug.Print FormatPercent(0.12345) & " " & FormatPercent(0.5, 0) & " " & FormatPercent(-0.05, 1) & " " & _
        FormatPercent(12.34)
End Sub
