' The address of a text is refused by name.
'? 4:9 StrPtr is not supported by this macro language
Sub main()
    x = StrPtr("text")
End Sub
