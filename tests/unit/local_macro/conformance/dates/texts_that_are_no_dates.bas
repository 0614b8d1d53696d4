' The functions of dates take no text that isn't a date.
'! 13 Type mismatch
Sub main()
    x = Month("Smarch 3")
End Sub
