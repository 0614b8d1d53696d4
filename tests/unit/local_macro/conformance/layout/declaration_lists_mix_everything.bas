' One Dim may mix plain names, arrays, texts of fixed length and new objects.
'> 0 3 4 0
Sub main()
    Dim a As Long, b(3), c As String * 4, d As New Collection
    Debug.Print a & " " & UBound(b) & " " & Len(c) & " " & d.Count
End Sub
