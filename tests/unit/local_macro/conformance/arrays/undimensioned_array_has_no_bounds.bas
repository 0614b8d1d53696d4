' A dynamic array without ReDim has no bounds: UBound is error 9.
'! 9 Subscript out of range
Sub main()
    Dim a() As Long
    Debug.Print UBound(a)
End Sub
