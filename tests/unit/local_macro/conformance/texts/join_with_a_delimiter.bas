' Join puts the delimiter between the elements, a blank when left out.
'> a-b-c
'> a b c
'> abc
'> 1;True;
Sub main()
    parts = Array("a", "b", "c")
    Debug.Print Join(parts, "-")
    Debug.Print Join(parts)
    Debug.Print Join(parts, "")
    Debug.Print Join(Array(1, True, Empty), ";")
End Sub
