' A dynamic array in a record is dimensioned like any other.
'> 3 x
Type Thing
    list() As String
End Type

Sub main()
    Dim t As Thing, all(1) As Thing
    ReDim t.list(3)
    ReDim all(1).list(1 To 2)
    all(1).list(2) = "x"
    ReDim Preserve all(1).list(1 To 4)
    Debug.Print UBound(t.list) & " " & all(1).list(2)
End Sub
