' Without Set a value goes to the default property of the object; Nothing has none.
'! 91 Object variable or With block variable not set
Sub main()
    Dim c As Collection
    c = 5
End Sub
