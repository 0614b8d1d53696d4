' With Resume Next the failed statement is left as it stands and the next one runs.
'> 7 11
Sub main()
    Dim n As Long, zero As Long
    n = 7
    On Error Resume Next
    n = 1 \ zero
    Debug.Print n & " " & Err.Number
End Sub
