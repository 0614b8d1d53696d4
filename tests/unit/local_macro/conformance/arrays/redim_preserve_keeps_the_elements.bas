' ReDim Preserve keeps what fits: growing adds initial values, shrinking drops the end.
'> 7 8 0
'> 7 1
Sub main()
    Dim a() As Long
    ReDim a(1)
    a(0) = 7
    a(1) = 8
    ReDim Preserve a(2)
    Debug.Print a(0) & " " & a(1) & " " & a(2)
    ReDim Preserve a(1)
    Debug.Print a(0) & " " & UBound(a)
End Sub
