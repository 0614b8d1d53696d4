' A type can't hold itself.
'? 4:5 Forward reference to user-defined type
Type Thing
    inner As Thing
End Type
Sub main()
End Sub
