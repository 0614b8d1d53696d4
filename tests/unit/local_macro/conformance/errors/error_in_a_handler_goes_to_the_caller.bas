' An error within an active handler isn't guarded by it: it goes to the caller's handler.
'> inner 11
'> outer 9
Sub Inner()
    Dim zero As Long, a(1) As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Exit Sub
Failed:
    Debug.Print "inner " & Err.Number
    zero = a(7)
End Sub

Sub main()
    On Error GoTo Failed
    Inner
    Exit Sub
Failed:
    Debug.Print "outer " & Err.Number
End Sub
