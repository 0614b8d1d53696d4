' A fixed array can be the source; the copy is dynamic.
'> 7 5
Sub main()
    Dim a(3) As Long, b() As Long
    a(2) = 7
    b = a
    ReDim Preserve b(5)
    Debug.Print b(2) & " " & UBound(b)
End Sub
