' LSet between records of one type copies like an assignment.
'> 5
Type Thing
    n As Long
End Type

Sub main()
    Dim a As Thing, b As Thing
    a.n = 5
    LSet b = a
    Debug.Print b.n & ""
End Sub
