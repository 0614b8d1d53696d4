' Only one of Before and After may be given.
'! 5 Invalid procedure call or argument
Sub main()
    Dim c As New Collection
    c.Add "a"
    c.Add "b", , 1, 1
End Sub
