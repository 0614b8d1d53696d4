' A key is a text; a number as a key is a mismatch.
'! 13 Type mismatch
Sub main()
    Dim c As New Collection
    c.Add "a", 5
End Sub
