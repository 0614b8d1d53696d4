' Assigning an array to a dynamic array or a Variant copies the elements.
'> 1 9 1
Sub main()
    Dim a() As Long, b() As Long, v As Variant
    ReDim a(1)
    a(0) = 1
    b = a
    v = a
    a(0) = 9
    Debug.Print b(0) & " " & a(0) & " " & v(0)
End Sub
