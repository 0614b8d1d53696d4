' Numbers go from 1 to Count.
'> 9 9 9
Sub main()
    Dim c As New Collection, s As String, v As Variant
    c.Add "a"
    On Error Resume Next
    v = c(0): s = Err.Number: Err.Clear
    v = c(2): s = s & " " & Err.Number: Err.Clear
    c.Remove 5
    Debug.Print s & " " & Err.Number
End Sub
