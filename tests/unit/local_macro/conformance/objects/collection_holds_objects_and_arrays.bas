' Items may be anything: objects, arrays, Null, Nothing.
'> 2 7 True True
Sub main()
    Dim c As New Collection, inner As New Collection
    inner.Add 1
    inner.Add 2
    c.Add inner
    c.Add Array(6, 7)
    c.Add Null
    c.Add Nothing
    Debug.Print c(1).Count & " " & c(2)(1) & " " & IsNull(c(3)) & " " & (c(4) Is Nothing)
End Sub
