'>  6  2  3 
'>  6  0 
Sub main()
    Dim a(1 To 2, 3) As Long
    a(2, 3) = 6
    Debug.Print a(2, 3); UBound(a, 1); UBound(a, 2)
    Dim b() As Long
    ReDim b(1, 1)
    b(1, 1) = 6
    ReDim Preserve b(1, 2)
    Debug.Print b(1, 1); b(1, 2)
End Sub
