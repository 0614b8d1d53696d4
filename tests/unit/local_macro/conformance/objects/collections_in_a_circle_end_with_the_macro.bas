' Objects that hold each other are given back when the macro ends.
'> 1
Sub main()
    Dim a As New Collection, b As New Collection
    a.Add b
    b.Add a
    Debug.Print a(1)(1).Count & ""
End Sub
