' A character that means nothing is told.
'? 4:9 Invalid character
Sub main()
    x = @
End Sub
