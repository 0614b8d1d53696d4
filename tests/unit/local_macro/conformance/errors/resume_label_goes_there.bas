' Resume label leaves the handler for the label; errors are guarded again.
'> first
'> second
'> done
Sub main()
    Dim zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Debug.Print "skipped"
Second:
    On Error GoTo Failed2
    zero = 1 \ zero
    Exit Sub
Failed:
    Debug.Print "first"
    Resume Second
Failed2:
    Debug.Print "second"
    Resume Done
Done:
    Debug.Print "done"
End Sub
