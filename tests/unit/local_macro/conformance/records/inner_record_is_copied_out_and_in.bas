' A field that is a record can be assigned as a whole, in both directions.
'> 7 8
Type Inner
    n As Long
End Type

Type Outer
    i As Inner
End Type

Sub main()
    Dim a As Outer, x As Inner
    x.n = 7
    a.i = x
    x.n = 8
    Debug.Print a.i.n & " ";
    a.i.n = 9
    Debug.Print x.n & ""
End Sub
