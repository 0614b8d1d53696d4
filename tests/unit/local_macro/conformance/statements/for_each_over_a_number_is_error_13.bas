' Only arrays and collections can be walked.
'! 13 Type mismatch
Sub main()
    Dim n As Variant, v As Variant
    n = 5
    For Each v In n
    Next
End Sub
