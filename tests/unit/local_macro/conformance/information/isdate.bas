' IsDate tells whether a value is a date or a text that could be read as one.
'> True True True True
'> False False False False
Sub main()
    Debug.Print IsDate(#1/1/2020#) & " " & IsDate("May 4, 2020") & " " & IsDate("12:30") & " " & IsDate("13/1/2020")
    Debug.Print IsDate("2/30/2020") & " " & IsDate("abc") & " " & IsDate(43831) & " " & IsDate(Null)
End Sub
