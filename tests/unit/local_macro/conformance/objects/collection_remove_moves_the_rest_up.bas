' Remove takes out by number or key; the items behind move up.
'> 1 c
Sub main()
    Dim c As New Collection
    c.Add "a"
    c.Add "b", "kb"
    c.Add "c"
    c.Remove 1
    c.Remove "kb"
    Debug.Print c.Count & " " & c(1)
End Sub
