' A field may be a fixed or a dynamic array; a copy of the record has its own.
'> 5 9 3
Type Thing
    fixed1(1 To 3) As Long
    free() As String
End Type

Sub main()
    Dim a As Thing, b As Thing
    a.fixed1(2) = 5
    ReDim a.free(3)
    b = a
    b.fixed1(2) = 9
    Debug.Print a.fixed1(2) & " " & b.fixed1(2) & " " & UBound(b.free)
End Sub
