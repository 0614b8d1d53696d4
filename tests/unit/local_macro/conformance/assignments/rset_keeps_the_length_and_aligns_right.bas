' RSet puts a text to the right; one that is too long loses its right end.
'> [   ab]
'> [abcde]
Sub main()
    Dim s As String
    s = "12345"
    RSet s = "ab"
    Debug.Print "[" & s & "]"
    RSet s = "abcdefgh"
    Debug.Print "[" & s & "]"
End Sub
