'> 1,234.50
'> 007
'> 12.3
'> 45.00%
'> 1.23E+03
'> (5)
'> $1,234.50
'> -3.00
'> nil
Sub main()
    Debug.Print Format(1234.5, "#,##0.00")
    Debug.Print Format(7, "000")
    Debug.Print Format(12.3, "#.##")
    Debug.Print Format(0.45, "Percent")
    Debug.Print Format(1234.5, "0.00E+00")
    Debug.Print Format(-5, "0;(0)")
    Debug.Print Format(1234.5, "Currency")
    Debug.Print Format(-3, "Fixed")
    Debug.Print Format(0, "0;-0;""nil""")
End Sub
