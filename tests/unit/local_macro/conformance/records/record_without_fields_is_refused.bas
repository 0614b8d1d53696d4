' A user-defined type has at least one field.
'? 3:6 User-defined type without members not allowed
Type Thing
End Type
Sub main()
End Sub
