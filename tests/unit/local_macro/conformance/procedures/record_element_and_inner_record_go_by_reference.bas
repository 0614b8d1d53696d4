' An element of an array of records and a field that is a record go by reference, also from a With block.
'> 1 2 3
Type Inner
    n As Long
End Type

Type Outer
    i As Inner
End Type

Sub SetTo(x As Inner, n As Long)
    x.n = n
End Sub

Sub main()
    Dim a(1) As Inner, o As Outer, p As Outer
    SetTo a(1), 1
    SetTo o.i, 2
    With p
        SetTo .i, 3
    End With
    Debug.Print a(1).n & " " & o.i.n & " " & p.i.n
End Sub
