' An index below or above the bounds is error 9, for reading and writing.
'> 9 9 9
Sub main()
    Dim a(1 To 3) As Long, s As String
    On Error Resume Next
    a(0) = 1
    s = Err.Number
    Err.Clear
    a(4) = 1
    s = s & " " & Err.Number
    Err.Clear
    Debug.Print a(4)
    s = s & " " & Err.Number
    Debug.Print s
End Sub
