' "If ... Then:" with a statement behind the colon is still a single-line If.
'> one
'> after
Sub main()
    If True Then: Debug.Print "one"
    Debug.Print "after"
End Sub
