' And and Or evaluate both sides, so that a test for Nothing protects nothing in the same condition.
'! 91 Object variable or With block variable not set
Sub main()
    Dim c As Collection
    If Not c Is Nothing And c.Count = 1 Then Debug.Print "no"
End Sub
