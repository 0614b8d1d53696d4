' A macro has no command line of its own.
'> [] String
Sub main()
    Debug.Print "[" & Command & "] " & TypeName(Command$)
End Sub
