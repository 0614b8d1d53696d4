' Loc of a Binary file is the position of the last byte that was read or written.
'> 0 4 2
Sub main()
    Dim n As Long, i As Integer
    Open "C:\b" For Binary As #1
    Debug.Print Loc(1) & " ";
    Put #1, , n
    Debug.Print Loc(1) & " ";
    Get #1, 1, i
    Debug.Print Loc(1) & ""
End Sub
