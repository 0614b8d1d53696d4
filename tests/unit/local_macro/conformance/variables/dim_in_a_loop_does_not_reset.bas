' Dim is no statement that runs: a variable keeps its value when the loop comes by again.
'> 1 2 3
Sub main()
    Dim i As Long, s As String
    For i = 1 To 3
        Dim n As Long
        n = n + 1
        s = s & " " & n
    Next
    Debug.Print Trim(s)
End Sub
