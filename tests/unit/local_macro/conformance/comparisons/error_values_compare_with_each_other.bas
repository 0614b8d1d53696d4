' Two error values are equal when their numbers are; with anything else it is error 13.
'> True False True
'! 13 Type mismatch
Sub main()
    v = CVErr(2042)
    Debug.Print (v = CVErr(2042)) & " " & (v = CVErr(2007)) & " " & (v <> CVErr(2007))
    x = (v = 2042)
End Sub
