' A name that the language's library doesn't have is found out before anything runs.
'? 5:13 Method or data member not found: Leftmost
Sub main()
    Debug.Print "never"
    x = VBA.Leftmost("abc", 1)
End Sub
