' A field may be an object, set by Set, or a Variant of any value.
'> 1 text
Type Thing
    list As Collection
    v As Variant
End Type

Sub main()
    Dim t As Thing
    Set t.list = New Collection
    t.list.Add "x"
    t.v = "text"
    Debug.Print t.list.Count & " " & t.v
End Sub
