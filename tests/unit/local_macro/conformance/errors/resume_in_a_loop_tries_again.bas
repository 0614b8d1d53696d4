' A handler with Resume in a loop tries a limited number of times.
'> 3 tries
Sub main()
    Dim tries As Long, d As Long
    On Error GoTo Failed
    d = 1 \ d
    Debug.Print tries & " tries"
    Exit Sub
Failed:
    tries = tries + 1
    If tries = 3 Then d = 1
    Resume
End Sub
