' A called procedure with a handler of its own leaves the caller's as it is.
'> inner
'> outer
Sub Inner()
    Dim zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Exit Sub
Failed:
    Debug.Print "inner"
End Sub

Sub main()
    Dim zero As Long
    On Error GoTo Failed
    Inner
    zero = 1 \ zero
    Exit Sub
Failed:
    Debug.Print "outer"
End Sub
