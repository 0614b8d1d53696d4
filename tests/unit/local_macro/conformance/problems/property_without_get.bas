' A property without Property Get can only be written.
'? 6:9 Invalid use of property: Level
Property Let Level(n)
End Property
Sub main()
    x = Level
End Sub
