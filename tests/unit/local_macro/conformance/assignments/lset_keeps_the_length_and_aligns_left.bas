' LSet puts a text to the left of what the variable's text takes, filled with blanks or cut.
'> [ab   ]
'> [abcde]
Sub main()
    Dim s As String
    s = "12345"
    LSet s = "ab"
    Debug.Print "[" & s & "]"
    LSet s = "abcdefgh"
    Debug.Print "[" & s & "]"
End Sub
