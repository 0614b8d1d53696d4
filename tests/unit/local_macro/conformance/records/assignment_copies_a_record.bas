' Assigning a record copies all its fields; the two are independent afterwards.
'> 1 a 2 b
Type Thing
    n As Long
    s As String
End Type

Sub main()
    Dim a As Thing, b As Thing
    a.n = 1
    a.s = "a"
    b = a
    b.n = 2
    b.s = "b"
    Debug.Print a.n & " " & a.s & " " & b.n & " " & b.s
End Sub
