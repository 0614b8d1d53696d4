' Module variables of fixed arrays and records need no preparation.
'> 0 7
Type Thing
    n As Long
End Type
Dim list(2) As Long
Dim one As Thing

Sub main()
    one.n = 7
    Debug.Print list(2) & " " & one.n
End Sub
