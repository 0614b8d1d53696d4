' A function behind a module of the language must be one of that module.
'? 4:22 Method or data member not found: Left
Sub main()
    Debug.Print Math.Left("abc", 1)
End Sub
