' Property Let takes the property's arguments and the value, no more.
'? 6:10 Wrong number of arguments or invalid property assignment
Property Let Level(n As Long)
End Property
Sub main()
    Level(1) = 5
End Sub
