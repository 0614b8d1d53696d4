' Without a number Get and Put go on with the next record; Seek tells and sets it, Loc is the last one.
'> 3 2
'> 20
'> 10
Sub main()
    Dim n As Long
    Open "C:\r" For Random As #1 Len = 4
    n = 10: Put #1, , n
    n = 20: Put #1, , n
    Debug.Print Seek(1) & " " & Loc(1)
    Get #1, 2, n
    Debug.Print n & ""
    Seek #1, 1
    Get #1, , n
    Debug.Print n & ""
End Sub
