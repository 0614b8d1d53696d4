' A With block needs an object once a member is used.
'! 91 Object variable or With block variable not set
Sub main()
    Dim c As Collection
    With c
        .Add 1
    End With
End Sub
