' An element needs as many indices as the array has dimensions.
'! 9 Subscript out of range
Sub main()
    Dim a() As Long
    ReDim a(2, 2)
    a(1) = 5
End Sub
