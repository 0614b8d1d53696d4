' ReDim without Preserve gives new elements.
'> 0 4
Sub main()
    Dim a() As Long
    ReDim a(2)
    a(1) = 7
    ReDim a(4)
    Debug.Print a(1) & " " & UBound(a)
End Sub
