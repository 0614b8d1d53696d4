' TypeOf ... Is is True for an object's class and for Object.
'> True False True
Sub main()
    Dim o As Object
    Set o = New Collection
    Debug.Print (TypeOf o Is Collection) & " " & (TypeOf o Is Scripting.Dictionary) & " " & (TypeOf o Is Object)
End Sub
