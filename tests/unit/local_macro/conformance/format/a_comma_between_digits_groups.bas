' A comma among the digits in front of the point puts one between the thousands.
'> 1,234,567 1,234,567.9 12 0,012
Sub main()
    Debug.Print Format(1234567, "#,##0") & " " & Format(1234567.89, "#,##0.0") & " " & Format(12, "#,##0") & " " & _
        Format(12, "0,000")
End Sub
