' An array goes by reference: the procedure changes its elements and its size.
'> 5 9
Sub Grow(a() As Long)
    ReDim Preserve a(5)
    a(0) = 9
End Sub

Sub main()
    Dim a() As Long
    ReDim a(1)
    a(0) = 1
    Grow a
    Debug.Print UBound(a) & " " & a(0)
End Sub
