' Inside a function that returns an array, elements are written through a variable and returned as a whole.
'> 0 1 4 9
Function Squares(n As Long) As Long()
    Dim a() As Long, i As Long
    ReDim a(n)
    For i = 0 To n
        a(i) = i * i
    Next
    Squares = a
End Function

Sub main()
    Dim v As Variant, s As String
    For Each v In Squares(3)
        s = s & " " & v
    Next
    Debug.Print Trim(s)
End Sub
