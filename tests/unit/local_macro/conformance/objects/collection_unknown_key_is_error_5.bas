' A key that isn't there is error 5, for reading and removing.
'> 5 5
Sub main()
    Dim c As New Collection, s As String, v As Variant
    On Error Resume Next
    v = c("none"): s = Err.Number: Err.Clear
    c.Remove "none"
    Debug.Print s & " " & Err.Number
End Sub
