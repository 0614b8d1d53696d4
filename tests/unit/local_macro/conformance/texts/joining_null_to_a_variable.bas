' Null & Null is Null; with a text, Null counts as the empty text.
'> Null
'> String a
Sub main()
    v = Null
    v = v & Null
    Debug.Print TypeName(v)
    v = v & "a"
    Debug.Print TypeName(v); " "; v
End Sub
