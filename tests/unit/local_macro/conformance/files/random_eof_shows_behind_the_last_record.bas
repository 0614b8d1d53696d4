' EOF of a Random file is True once a Get found no whole record.
'> 1 2 | True
Sub main()
    Dim n As Long, s As String
    Open "C:\r" For Random As #1 Len = 4
    n = 1: Put #1, , n
    n = 2: Put #1, , n
    Seek #1, 1
    Do
        Get #1, , n
        If EOF(1) Then Exit Do
        s = s & n & " "
    Loop
    Debug.Print s & "| " & EOF(1)
End Sub
