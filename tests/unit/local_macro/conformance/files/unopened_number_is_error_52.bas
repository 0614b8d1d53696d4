' Every statement but Close needs an open number.
'> 52 52 52 52
Sub main()
    Dim s As String, n As Long
    On Error Resume Next
    Print #3, "x"
    s = Err.Number: Err.Clear
    Line Input #3, s
    s = s & " " & Err.Number: Err.Clear
    n = LOF(3)
    s = s & " " & Err.Number: Err.Clear
    Seek #3, 1
    Debug.Print s & " " & Err.Number
End Sub
