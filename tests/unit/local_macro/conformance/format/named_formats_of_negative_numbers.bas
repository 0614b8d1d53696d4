' A negative amount stands in brackets, other negative numbers have their sign.
'> ($1,234.50) -3.00 -1,234.50 -50.00%
Sub main()
    Debug.Print Format(-1234.5, "Currency") & " " & Format(-3, "Fixed") & " " & Format(-1234.5, "Standard") & " " & _
        Format(-0.5, "Percent")
End Sub
