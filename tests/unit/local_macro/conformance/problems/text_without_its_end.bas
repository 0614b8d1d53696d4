' A text ends in the line in which it begins.
'? 4:9 Expected: " at the end of the text
Sub main()
    x = "abc
End Sub
