' A key that is taken is error 457.
'! 457 This key is already associated with an element of this collection
Sub main()
    Dim c As New Collection
    c.Add 1, "k"
    c.Add 2, "K"
End Sub
