' A field String * n is cut and padded like a variable of that type.
'> [abc][x  ]
Type Thing
    a As String * 3
    b(1) As String * 3
End Type

Sub main()
    Dim t As Thing
    t.a = "abcdef"
    t.b(1) = "x"
    Debug.Print "[" & t.a & "][" & t.b(1) & "]"
End Sub
