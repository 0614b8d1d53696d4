' Unlock takes the range that Lock took.
'> 5
Sub main()
    Dim n As Long
    Open "C:\r" For Random Shared As #1 Len = 4
    n = 5: Put #1, 1, n
    Open "C:\r" For Random Shared As #2 Len = 4
    Lock #1, 1 To 3
    Unlock #1, 1 To 3
    Get #2, 1, n
    Debug.Print n & ""
End Sub
