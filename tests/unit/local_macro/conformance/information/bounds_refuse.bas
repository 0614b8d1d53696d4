' A dimension that doesn't exist and an array without bounds are error 9, what is no array error 13.
'> 9 9 9 13
Sub main()
    Dim a(5), b() As Long, v
    On Error Resume Next
    x = UBound(a, 2): e = Err.Number: Err.Clear
    x = UBound(a, 0): e = e & " " & Err.Number: Err.Clear
    x = UBound(b): e = e & " " & Err.Number: Err.Clear
    v = 5
    x = UBound(v): e = e & " " & Err.Number
    Debug.Print e
End Sub
