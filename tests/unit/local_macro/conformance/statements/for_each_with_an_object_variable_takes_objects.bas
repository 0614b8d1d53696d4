' The variable of For Each may be of a class when the items are objects of it.
'> 1 2
Sub main()
    Dim all As New Collection, c As Collection, s As String
    all.Add New Collection
    all.Add New Collection
    all(1).Add "x"
    all(2).Add "x"
    all(2).Add "y"
    For Each c In all
        s = s & " " & c.Count
    Next
    Debug.Print Trim(s)
End Sub
