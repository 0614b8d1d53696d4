' Exit Property belongs into property procedures.
'? 4:5 Exit Property not allowed in Function or Sub
Sub main()
    Exit Property
End Sub
