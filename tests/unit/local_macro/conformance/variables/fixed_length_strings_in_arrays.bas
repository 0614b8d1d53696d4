' Elements of an array of String * n are cut and padded too, also after ReDim Preserve.
'> [ab][x ] 2
Sub main()
    Dim a() As String * 2
    ReDim a(1)
    a(0) = "abc"
    ReDim Preserve a(2)
    a(2) = "x"
    Debug.Print "[" & a(0) & "][" & a(2) & "] " & Len(a(1))
End Sub
