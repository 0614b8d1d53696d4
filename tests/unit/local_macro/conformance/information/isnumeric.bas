' IsNumeric tells whether a value could be read as a number.
'> True True True True True True True
'> False False False False False False
Sub main()
    Debug.Print IsNumeric(5) & " " & IsNumeric("12.5") & " " & IsNumeric("&H1F") & " " & IsNumeric("1e5") & " " & _
        IsNumeric(" 5 ") & " " & IsNumeric(Empty) & " " & IsNumeric(True)
    Debug.Print IsNumeric("") & " " & IsNumeric("abc") & " " & IsNumeric("5 5") & " " & IsNumeric(Null) & " " & _
        IsNumeric(#1/1/2020#) & " " & IsNumeric(Array(1))
End Sub
