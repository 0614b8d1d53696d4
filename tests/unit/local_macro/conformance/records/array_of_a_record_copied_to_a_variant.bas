' An array field that goes to a Variant is a copy.
'> 5 77
Type Thing
    a(2) As Long
End Type

Sub main()
    Dim t As Thing, v As Variant
    t.a(1) = 5
    v = t.a
    v(1) = 77
    Debug.Print t.a(1) & " " & v(1)
End Sub
