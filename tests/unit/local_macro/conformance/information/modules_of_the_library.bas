' The language's functions may be called through the module that they stand in, with VBA in front or without.
'> ab 5 True
'> 2026 1,234.50
Sub main()
    Debug.Print Strings.Left("abc", 2) & " " & VBA.Math.Abs(-5) & " " & VBA.Information.IsNumeric("5")
    Debug.Print VBA.DateTime.Year(#3/8/2026#) & " " & Strings.Format$(1234.5, "#,##0.00")
End Sub
