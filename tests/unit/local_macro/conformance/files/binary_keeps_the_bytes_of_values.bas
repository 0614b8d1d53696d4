' Put and Get move values as their bytes, one behind the other, lowest byte first.
'> 19
'> 258 -1 True 2.5 1.25
'> 2 1
Sub main()
    Dim i As Integer, l As Long, b As Boolean, d As Double, s As Single, x As Byte, y As Byte
    Open "C:\b" For Binary As #1
    i = 258: l = -1: b = True: d = 2.5: s = 1.25
    Put #1, , i
    Put #1, , l
    Put #1, , b
    Put #1, , d
    Put #1, , CByte(9)
    Put #1, 18, s
    Debug.Print (LOF(1) - 2) & ""
    i = 0: l = 0: b = False: d = 0: s = 0
    Get #1, 1, i
    Get #1, , l
    Get #1, , b
    Get #1, , d
    Get #1, 18, s
    Debug.Print i & " " & l & " " & b & " " & d & " " & s
    Get #1, 1, x
    Get #1, , y
    Debug.Print x & " " & y
End Sub
