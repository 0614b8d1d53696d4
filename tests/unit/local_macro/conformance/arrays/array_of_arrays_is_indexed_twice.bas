' A Variant element may be an array itself.
'> 9 2 b
Sub main()
    Dim v As Variant, jagged(1) As Variant
    v = Array(Array(1, 2), "b")
    v(0)(0) = 9
    jagged(1) = Array("a", "b")
    Debug.Print v(0)(0) & " " & v(0)(1) & " " & jagged(1)(1)
End Sub
