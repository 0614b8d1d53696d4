' "Next j, i" closes the inner loop first.
'> 11 12 21 22
Sub main()
    Dim i As Long, j As Long, s As String
    For i = 1 To 2
        For j = 1 To 2
            s = s & " " & i & j
    Next j, i
    Debug.Print Trim(s)
End Sub
