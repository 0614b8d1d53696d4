' An array takes an array of the same element type only.
'! 13 Type mismatch
Sub main()
    Dim a() As Long, b() As String
    ReDim b(3)
    a = b
End Sub
