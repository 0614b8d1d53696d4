' Every field needs As and a type.
'? 4:6 Expected: As
Type Thing
    n
End Type
Sub main()
End Sub
