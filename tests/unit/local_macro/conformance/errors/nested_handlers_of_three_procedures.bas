' Each level may handle and raise anew.
'> 3: 11
'> 2: 12
'> 1: 13
Sub Level3()
    Dim zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
Failed:
    Debug.Print "3: " & Err.Number
    Err.Raise 12
End Sub

Sub Level2()
    On Error GoTo Failed
    Level3
Failed:
    Debug.Print "2: " & Err.Number
    Err.Raise 13
End Sub

Sub main()
    On Error GoTo Failed
    Level2
    Exit Sub
Failed:
    Debug.Print "1: " & Err.Number
End Sub
