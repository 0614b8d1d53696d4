' A record that one number has locked can't be read or written by another; the locking number may.
'> own 5
'> 70 Permission denied
'> 6
Sub main()
    Dim n As Long
    Open "C:\r" For Random Shared As #1 Len = 4
    n = 5: Put #1, 1, n
    n = 6: Put #1, 2, n
    Open "C:\r" For Random Shared As #2 Len = 4
    Lock #1, 1
    Get #1, 1, n
    Debug.Print "own " & n
    On Error Resume Next
    Get #2, 1, n
    Debug.Print Err.Number & " " & Err.Description
    Get #2, 2, n
    Debug.Print n & ""
End Sub
