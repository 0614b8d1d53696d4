' Set needs an object variable or a Variant.
'? 5:9 Object required
Sub main()
    Dim n As Long
    Set n = New Collection
End Sub
