' Rounding may make a number a digit longer.
'> 10.0 1,000 1.00E+01 1.0E+01
Sub main()
    Debug.Print Format(9.96, "0.0") & " " & Format(999.5, "#,##0") & " " & Format(9.999, "0.00E+00") & " " & _
        Format(9.96, "0.0E+00")
End Sub
