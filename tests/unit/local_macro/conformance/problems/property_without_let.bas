' A property without Property Let can only be read.
'? 6:5 Can't assign to read-only property
Property Get Level()
End Property
Sub main()
    Level = 5
End Sub
