' Copies of deeply nested records are independent at every level.
'> 5 6 0 9
Type Inner
    a(2) As Long
End Type

Type Outer
    t(1 To 2) As Inner
End Type

Sub main()
    Dim x As Outer, y As Outer, all() As Outer
    x.t(1).a(1) = 5
    y = x
    y.t(1).a(1) = 6
    ReDim all(1)
    all(0) = x
    all(1) = all(0)
    all(1).t(2).a(2) = 9
    Debug.Print x.t(1).a(1) & " " & y.t(1).a(1) & " " & all(0).t(2).a(2) & " " & all(1).t(2).a(2)
End Sub
