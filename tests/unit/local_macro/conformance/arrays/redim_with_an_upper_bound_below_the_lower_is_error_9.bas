' An array has at least one element a dimension.
'! 9 Subscript out of range
Sub main()
    Dim a() As Long, n As Long
    n = -1
    ReDim a(n)
End Sub
