' Elements of arrays and fields of records go by reference too.
'> 2 4
Type Pair
    first As Long
    second As Long
End Type

Sub Twice(n As Long)
    n = n * 2
End Sub

Sub main()
    Dim a(3) As Long, p As Pair
    a(2) = 1
    p.second = 2
    Twice a(2)
    Twice p.second
    Debug.Print a(2) & " " & p.second
End Sub
