' Copying an array copies the arrays that it holds.
'> 1 5
Sub main()
    Dim v As Variant, w As Variant
    v = Array(Array(1))
    w = v
    w(0)(0) = 5
    Debug.Print v(0)(0) & " " & w(0)(0)
End Sub
