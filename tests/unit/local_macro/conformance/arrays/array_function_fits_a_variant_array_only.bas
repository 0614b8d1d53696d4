' The array that Array makes holds Variants, so it fits Variant() and not Long().
'> 2
'> 13
Sub main()
    Dim v() As Variant, n() As Long
    v = Array(1, 2, 3)
    Debug.Print UBound(v) & ""
    On Error Resume Next
    n = Array(1, 2)
    Debug.Print Err.Number & ""
End Sub
