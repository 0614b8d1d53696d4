' An array where one value is wanted is a type mismatch.
'! 13 Type mismatch
Sub main()
    Dim n As Long
    n = Array(1)
End Sub
