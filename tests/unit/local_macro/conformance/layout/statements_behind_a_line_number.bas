' Any statement may follow a line number in its line.
'> 0 1 2
Sub main()
    Dim i As Long, s As String
10  For i = 0 To 2
20      If i = 9 Then 40
30      s = s & " " & i
40  Next
50  Debug.Print Trim(s)
End Sub
