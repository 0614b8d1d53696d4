' A procedure that is left from its handler has dealt with the error: Err is clear in the caller.
'> 0
Sub Inner()
    Dim zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
Failed:
End Sub

Sub main()
    On Error Resume Next
    Inner
    Debug.Print Err.Number & ""
End Sub
