' An object whose default member wants an argument can't be assigned without Set.
'! 450 Wrong number of arguments or invalid property assignment
Sub main()
    Dim c As New Collection, v As Variant
    v = c
End Sub
