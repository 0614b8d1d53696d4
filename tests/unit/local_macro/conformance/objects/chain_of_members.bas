' Members are read one behind the other, with arguments in between.
'> deep
Sub main()
    Dim a As New Collection, b As New Collection, c As New Collection
    c.Add "deep"
    b.Add c, "key"
    a.Add b
    Debug.Print a(1)("key").Item(1)
End Sub
