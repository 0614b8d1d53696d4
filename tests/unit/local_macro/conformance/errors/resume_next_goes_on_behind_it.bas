' Resume Next leaves the handler for the statement behind the failed one.
'> handler 11
'> behind
Sub main()
    Dim zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Debug.Print "behind"
    Exit Sub
Failed:
    Debug.Print "handler " & Err.Number
    Resume Next
End Sub
