' UBound wants an array.
'! 13 Type mismatch
Sub main()
    Dim v As Variant
    v = 5
    Debug.Print UBound(v)
End Sub
