' IsArray is True for arrays, also undimensioned ones and those in a Variant.
'> True True True False
Sub main()
    Dim a() As Long, b(1) As Long, v As Variant, n As Variant
    v = Array()
    Debug.Print IsArray(a) & " " & IsArray(b) & " " & IsArray(v) & " " & IsArray(n)
End Sub
