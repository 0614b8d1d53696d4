' The formats of numbers that have names.
'> 1234.5
'> $1,234.50
'> 1234.50
'> 1,234.50
'> 123450.00%
'> 1.23E+03
Sub main()
    Debug.Print Format(1234.5, "General Number")
    Debug.Print Format(1234.5, "Currency")
    Debug.Print Format(1234.5, "Fixed")
    Debug.Print Format(1234.5, "Standard")
    Debug.Print Format(1234.5, "Percent")
    Debug.Print Format(1234.5, "Scientific")
End Sub
