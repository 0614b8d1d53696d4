' "If condition GoTo label" is an If statement of its own form.
'> there
Sub main()
    If 2 > 1 GoTo There
    Debug.Print "not jumped"
There:
    Debug.Print "there"
End Sub
