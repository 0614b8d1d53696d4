' On Error GoTo -1 clears the active error, so that On Error works again within the handler.
'> caught 9
Sub main()
    Dim zero As Long, a(1) As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Exit Sub
Failed:
    On Error GoTo -1
    On Error Resume Next
    zero = a(7)
    Debug.Print "caught " & Err.Number
End Sub
