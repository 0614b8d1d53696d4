' Elements of an array of a class are Nothing until they are set.
'> True 1
Sub main()
    Dim a(2) As Collection
    Debug.Print (a(0) Is Nothing) & " ";
    Set a(1) = New Collection
    a(1).Add "x"
    Debug.Print a(1).Count & ""
End Sub
