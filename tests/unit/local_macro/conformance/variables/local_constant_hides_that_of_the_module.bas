' A constant of a procedure hides the module's.
'> inner
'> outer
Const kWord = "outer"

Sub Show()
    Const kWord = "inner"
    Debug.Print kWord
End Sub

Sub main()
    Show
    Debug.Print kWord
End Sub
