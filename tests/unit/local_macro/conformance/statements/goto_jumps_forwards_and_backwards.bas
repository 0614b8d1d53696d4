' GoTo goes to a label of its own procedure, before or behind it.
'> 1 2 3
Sub main()
    Dim n As Long, s As String
Again:
    n = n + 1
    s = s & " " & n
    If n = 3 Then GoTo Done
    GoTo Again
Done:
    Debug.Print Trim(s)
End Sub
