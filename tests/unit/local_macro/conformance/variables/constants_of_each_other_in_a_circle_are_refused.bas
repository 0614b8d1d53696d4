' Constants that are made of each other have no value.
'? 4:11 Circular dependencies between constants
Const a = b
Const b = a
Sub main()
End Sub
