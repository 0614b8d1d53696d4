' A year of two digits in a text follows the same rule as in a literal.
'> 2029 1930
Sub main()
    Debug.Print Year(CDate("1/1/29")) & " " & Year(CDate("1/1/30"))
End Sub
