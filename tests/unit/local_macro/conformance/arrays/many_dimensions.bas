' An array may have many dimensions, each with its own bounds.
'> 12 3 -1
Sub main()
    Dim a(1 To 2, -1 To 0, 1, 3, 0 To 0, 2) As Integer
    a(2, -1, 1, 3, 0, 2) = 12
    Debug.Print a(2, -1, 1, 3, 0, 2) & " " & UBound(a, 4) & " " & LBound(a, 2)
End Sub
