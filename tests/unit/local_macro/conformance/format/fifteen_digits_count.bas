' Format shows the fifteen digits that a Double has; places beyond are zeros.
'> 1152921504606850000
'> 0.30000000000000000
'> 123,456,789,012,346,000
Sub main()
    Debug.Print Format(2 ^ 60, "0")
    Debug.Print Format(0.1 + 0.2, "0.00000000000000000")
    Debug.Print Format(123456789012345678#, "#,##0")
End Sub
