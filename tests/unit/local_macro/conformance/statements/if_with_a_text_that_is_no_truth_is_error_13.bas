' A text that is neither a number nor True or False can't be a condition.
'! 13 Type mismatch
Sub main()
    If "perhaps" Then Debug.Print "no"
End Sub
