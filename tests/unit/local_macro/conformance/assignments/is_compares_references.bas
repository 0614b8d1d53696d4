' Is is True for the same object and False for an equal one.
'> True False True
Sub main()
    Dim a As New Collection, b As Collection, c As New Collection, d As Collection
    Set b = a
    Debug.Print (a Is b) & " " & (a Is c) & " " & (d Is Nothing)
End Sub
