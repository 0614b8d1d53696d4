' The old name must be there (53), the new one free (58), and the file closed (55).
'> 53 58 55
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Close #1
    Open "C:\b.txt" For Output As #1
    On Error Resume Next
    Name "C:\none.txt" As "C:\c.txt"
    s = Err.Number: Err.Clear
    Name "C:\a.txt" As "C:\b.txt"
    s = s & " " & Err.Number: Err.Clear
    Name "C:\b.txt" As "C:\c.txt"
    Debug.Print s & " " & Err.Number
End Sub
