' Of two Variants a date counts as a number, and is less than any text.
'> True
Sub main()
    Dim d, t
    d = #1/1/2020#: t = "1/1/1900"
    Debug.Print d < t
End Sub
