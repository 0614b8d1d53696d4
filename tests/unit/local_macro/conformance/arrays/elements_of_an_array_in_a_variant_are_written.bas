' An array in a Variant is written element by element, and keeps its element type.
'> 5 Integer
Sub main()
    Dim v As Variant, a(2) As Integer
    v = a
    v(1) = "5"
    Debug.Print v(1) & " " & TypeName(v(1))
End Sub
