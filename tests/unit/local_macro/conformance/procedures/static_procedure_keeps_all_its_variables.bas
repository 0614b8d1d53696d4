' Static in front of Sub makes all its local variables static.
'> 1 a
'> 2 aa
Static Sub Count()
    Dim n As Long, s As String
    n = n + 1
    s = s & "a"
    Debug.Print n & " " & s
End Sub

Sub main()
    Count
    Count
End Sub
