' Len of a record adds up its fields: a String * n counts n, an array all its elements.
'> 22
Type Thing
    id As Integer
    name As String * 8
    values(1 To 3) As Long
End Type

Sub main()
    Dim t As Thing
    Debug.Print Len(t) & ""
End Sub
