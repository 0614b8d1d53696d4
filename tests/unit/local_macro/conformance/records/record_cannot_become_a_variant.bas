' A Variant can't hold a record of a module's own type.
'? 10:9 Type mismatch
Type Thing
    n As Long
End Type

Sub main()
    Dim a As Thing
    Dim v As Variant
    v = a
End Sub
