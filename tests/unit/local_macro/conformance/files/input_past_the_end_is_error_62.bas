' Reading beyond the end is error 62, by Input # and Line Input # alike.
'> 62 62
Sub main()
    Dim s As String, t As String
    Open "C:\a.txt" For Output As #1
    Close #1
    Open "C:\a.txt" For Input As #1
    On Error Resume Next
    Input #1, s
    t = Err.Number: Err.Clear
    Line Input #1, s
    Debug.Print t & " " & Err.Number
End Sub
