' For Each over a two-dimensional array walks its first index fastest.
'> 00 10 01 11
Sub main()
    Dim a(1, 1) As String, i As Long, j As Long, v As Variant, s As String
    For i = 0 To 1
        For j = 0 To 1
            a(i, j) = i & j
        Next
    Next
    For Each v In a
        s = s & " " & v
    Next
    Debug.Print Trim(s)
End Sub
