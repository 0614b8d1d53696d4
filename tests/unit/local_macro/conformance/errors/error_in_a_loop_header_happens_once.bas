' A limit that fails is an error of the For statement, before any turn.
'! 13 Type mismatch
Sub main()
    Dim i As Long
    For i = 1 To "many"
        Debug.Print "turn"
    Next
End Sub
