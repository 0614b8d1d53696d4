' Two variables may mean the same collection.
'> 1
Sub main()
    Dim a As New Collection, b As Collection
    Set b = a
    b.Add "x"
    Debug.Print a.Count & ""
End Sub
