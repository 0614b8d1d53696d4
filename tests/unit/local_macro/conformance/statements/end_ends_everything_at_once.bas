' End ends the whole macro from any depth; no handler hears of it.
'> before
Sub Inner()
    Debug.Print "before"
    End
    Debug.Print "after"
End Sub

Sub main()
    On Error Resume Next
    Inner
    Debug.Print "not here"
End Sub
