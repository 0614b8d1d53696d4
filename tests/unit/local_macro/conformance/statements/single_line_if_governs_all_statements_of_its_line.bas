' Behind Then and behind Else stand lists of statements, parted by colons; the whole list belongs to the branch.
'> a b
'> d e
Sub main()
    Dim s As String
    If True Then s = "a": s = s & " b" Else s = "c": s = s & " x"
    Debug.Print s
    If False Then s = "a": s = s & " b" Else s = "d": s = s & " e"
    Debug.Print s
End Sub
