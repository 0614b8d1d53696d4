' An array in a Binary file is its elements, without bounds.
'> 6 1 2 3
Sub main()
    Dim a(2) As Integer, b(2) As Integer, i As Long
    For i = 0 To 2: a(i) = i + 1: Next
    Open "C:\b" For Binary As #1
    Put #1, , a
    Get #1, 1, b
    Debug.Print LOF(1) & " " & b(0) & " " & b(1) & " " & b(2)
End Sub
