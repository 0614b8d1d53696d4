' The start of Mid lies within the text.
'! 5 Invalid procedure call or argument
Sub main()
    Dim s As String
    s = "abc"
    Mid(s, 4, 1) = "x"
End Sub
