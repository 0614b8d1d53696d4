' The elements of a ParamArray can be handed on by reference in turn.
'> 12
Sub Add10(n As Variant)
    n = n + 10
End Sub

Sub AddToAll(ParamArray all() As Variant)
    Dim i As Long
    For i = 0 To UBound(all)
        Add10 all(i)
    Next
End Sub

Sub main()
    Dim a As Long
    a = 2
    AddToAll a
    Debug.Print a & ""
End Sub
