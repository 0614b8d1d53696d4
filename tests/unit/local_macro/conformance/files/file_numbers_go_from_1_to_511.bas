' 0 and 512 are no file numbers.
'> 52 52
Sub main()
    Dim s As String
    On Error Resume Next
    Open "C:\a.txt" For Output As #0
    s = Err.Number
    Err.Clear
    Open "C:\a.txt" For Output As #512
    Debug.Print s & " " & Err.Number
End Sub
