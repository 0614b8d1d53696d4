' A handler may use GoSub and loops like any other code.
'> 11 sub
Sub main()
    Dim zero As Long, s As String
    On Error GoTo Failed
    zero = 1 \ zero
    Exit Sub
Failed:
    s = Err.Number
    GoSub Add
    Debug.Print s
    Exit Sub
Add:
    s = s & " sub"
    Return
End Sub
