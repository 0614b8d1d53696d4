' Every type of number takes its own number of bytes in a file.
'> 1 2 2 4 4 8 8 8 8
Sub main()
    Dim a As Byte, b As Integer, c As Boolean, d As Long, e As Single, f As Double, g As Currency, h As Date, i As LongLong
    Dim s As String, n As Long
    Open "C:\b" For Binary As #1
    Put #1, , a: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , b: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , c: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , d: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , e: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , f: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , g: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , h: s = s & " " & (LOF(1) - n): n = LOF(1)
    Put #1, , i: s = s & " " & (LOF(1) - n)
    Debug.Print Trim(s)
End Sub
