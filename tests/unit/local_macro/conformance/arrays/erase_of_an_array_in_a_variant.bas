' Erase frees an array that a Variant holds; the elements are gone.
'> 9
Sub main()
    Dim v As Variant
    v = Array(1, 2)
    Erase v
    On Error Resume Next
    Debug.Print UBound(v)
    Debug.Print Err.Number & ""
End Sub
