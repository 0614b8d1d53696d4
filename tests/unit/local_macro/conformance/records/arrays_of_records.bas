' Elements of an array of records are records of their own.
'> 1 2 0
Type Thing
    n As Long
End Type

Sub main()
    Dim a(2) As Thing
    a(0).n = 1
    a(1) = a(0)
    a(1).n = 2
    Debug.Print a(0).n & " " & a(1).n & " " & a(2).n
End Sub
