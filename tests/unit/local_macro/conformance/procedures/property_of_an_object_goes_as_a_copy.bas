' A property's value is no variable: what a procedure writes to it is lost.
'> 2 1
Sub Change(n As Variant)
    n = n + 1
    Debug.Print n & " ";
End Sub

Sub main()
    Dim c As New Collection
    c.Add "x"
    Change c.Count
    Debug.Print c.Count & ""
End Sub
