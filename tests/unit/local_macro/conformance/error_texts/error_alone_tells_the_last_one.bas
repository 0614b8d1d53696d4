' Error without a number gives the text of the last error, and nothing without one.
'> []
'> Division by zero
'> my own words
Sub main()
    Debug.Print "[" & Error & "]"
    On Error Resume Next
    zero = 0
    x = 1 / zero
    Debug.Print Error
    Err.Raise 600, , "my own words"
    Debug.Print Error
End Sub
