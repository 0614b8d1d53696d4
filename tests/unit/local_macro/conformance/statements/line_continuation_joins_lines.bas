' A blank and an underscore at the end of a line continue it; not inside a name, which may hold underscores.
'> 6
'> a_b
Sub main()
    Dim a_b As String
    Debug.Print "" & (1 + _
        2 _
        + 3)
    a_b = _
        "a_b"
    Debug.Print a_b
End Sub
