' A Collection counts from 1 and keeps its items in the order of adding.
'> 3 a b c
Sub main()
    Dim c As New Collection
    c.Add "a"
    c.Add "b"
    c.Add "c"
    Debug.Print c.Count & " " & c(1) & " " & c.Item(2) & " " & c(3)
End Sub
