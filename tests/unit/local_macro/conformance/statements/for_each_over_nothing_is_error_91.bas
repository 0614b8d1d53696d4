' Nothing has no items.
'! 91 Object variable or With block variable not set
Sub main()
    Dim c As Collection, v As Variant
    For Each v In c
    Next
End Sub
