' With Preserve only the upper bound of the last dimension may change.
'> 11 21 0
Sub main()
    Dim a() As Long
    ReDim a(1 To 2, 1 To 1)
    a(1, 1) = 11
    a(2, 1) = 21
    ReDim Preserve a(1 To 2, 1 To 3)
    Debug.Print a(1, 1) & " " & a(2, 1) & " " & a(2, 3)
End Sub
