' The letters of a range may come in either order.
'> Integer Integer Empty
DefInt C-A
Sub main()
    Dim a1, c1, d1
    Debug.Print TypeName(a1) & " " & TypeName(c1) & " " & TypeName(d1)
End Sub
