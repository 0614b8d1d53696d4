' The smallest and largest numbers survive a file.
'> -32768 2147483647 -1 9223372036854775807 -922337203685477.5808 0.1
Sub main()
    Dim a As Integer, b As Long, c As Boolean, d As LongLong, e As Currency, f As Double
    Open "C:\b" For Binary As #1
    a = -32768: b = 2147483647: c = True: d = 9223372036854775807^: e = "-922337203685477.5808": f = 0.1
    Put #1, , a: Put #1, , b: Put #1, , c: Put #1, , d: Put #1, , e: Put #1, , f
    a = 0: b = 0: c = False: d = 0: e = 0: f = 0
    Get #1, 1, a: Get #1, , b: Get #1, , c: Get #1, , d: Get #1, , e: Get #1, , f
    Debug.Print a & " " & b & " " & CInt(c) & " " & d & " " & e & " " & f
End Sub
