' An open parenthesis wants its closing one.
'? 4:15 Expected: )
Sub main()
    x = (1 + 2
End Sub
