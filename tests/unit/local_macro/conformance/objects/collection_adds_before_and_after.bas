' Before and After name a place by number or by key.
'> x a y b
Sub main()
    Dim c As New Collection, v As Variant, s As String
    c.Add "a", "ka"
    c.Add "b", "kb"
    c.Add "x", Before:=1
    c.Add "y", After:="ka"
    For Each v In c
        s = s & " " & v
    Next
    Debug.Print Trim(s)
End Sub
