' Err.Clear sets all properties back.
'> 0 [] [] 0
Sub main()
    On Error Resume Next
    Err.Raise 5, "me", "words", "help.hlp", 7
    Err.Clear
    Debug.Print Err.Number & " [" & Err.Source & "] [" & Err.Description & "] " & Err.HelpContext
End Sub
