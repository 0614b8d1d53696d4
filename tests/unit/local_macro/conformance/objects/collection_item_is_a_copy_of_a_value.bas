' An item keeps the value that it was added with.
'> 1
Sub main()
    Dim c As New Collection, n As Long
    n = 1
    c.Add n
    n = 2
    Debug.Print c(1) & ""
End Sub
