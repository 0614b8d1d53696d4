' E+ always shows the exponent's sign, E- only a minus; the zeros behind give its width.
'> 1.23E+03 1.2E+3 1.23E03 1.20E-04 0.00E+00
Sub main()
    Debug.Print Format(1234.5, "0.00E+00") & " " & Format(1234.5, "0.0E+0") & " " & Format(1234.5, "0.00E-00") & " " & _
        Format(0.00012, "0.00E-00") & " " & Format(0, "0.00E+00")
End Sub
