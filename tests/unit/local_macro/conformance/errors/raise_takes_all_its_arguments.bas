' Err.Raise sets number, source, description, help file and help context.
'> 600 me words help.hlp 7
Sub main()
    On Error Resume Next
    Err.Raise 600, "me", "words", "help.hlp", 7
    Debug.Print Err.Number & " " & Err.Source & " " & Err.Description & " " & Err.HelpFile & " " & Err.HelpContext
End Sub
