' Str reads the text of a number; anything that is no number is error 13, and Null stays Null.
'> [ 12] True
'! 13 Type mismatch
Sub main()
    Debug.Print "[" & Str("12") & "] " & IsNull(Str(Null))
    x = Str("abc")
End Sub
