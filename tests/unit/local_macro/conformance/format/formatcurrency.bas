' FormatCurrency shows the currency sign; negative amounts stand in brackets unless told otherwise.
'> $1,234.50 ($5.00) -$5.00 $0.5 $1235
Sub main()
    Debug.Print FormatCurrency(1234.5) & " " & FormatCurrency(-5) & " " & _
        FormatCurrency(-5, UseParensForNegativeNumbers:=vbFalse) & " " & FormatCurrency(0.5, 1) & " " & _
        FormatCurrency(1234.5, 0, GroupDigits:=vbFalse)
End Sub
