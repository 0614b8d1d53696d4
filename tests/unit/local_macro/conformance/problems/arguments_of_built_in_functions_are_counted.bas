' The functions of the language count their arguments too.
'? 4:9 Argument not optional
Sub main()
    x = Left("abc")
End Sub
