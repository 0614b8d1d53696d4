' The body may change the counter; Next adds the step to what it finds.
'> 1 2 7 8
Sub main()
    Dim i As Long, s As String
    For i = 1 To 8
        s = s & " " & i
        If i = 2 Then i = 6
    Next
    Debug.Print Trim(s)
End Sub
