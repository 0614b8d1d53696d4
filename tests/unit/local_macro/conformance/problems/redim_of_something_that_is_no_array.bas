' ReDim wants a dynamic array or a Variant.
'? 5:11 Expected: array
Sub main()
    Dim n As Long
    ReDim n(1)
End Sub
