' A field may be of another user-defined type; copying copies it too.
'> 1 5
Type Inner
    n As Long
End Type

Type Outer
    i As Inner
    name As String
End Type

Sub main()
    Dim a As Outer, b As Outer
    a.i.n = 1
    b = a
    b.i.n = 5
    Debug.Print a.i.n & " " & b.i.n
End Sub
