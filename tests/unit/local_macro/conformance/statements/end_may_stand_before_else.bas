' End is a statement in a single-line If, also with an Else behind it.
'> before
Sub main()
    Debug.Print "before"
    If True Then End Else Debug.Print "else"
    Debug.Print "after"
End Sub
