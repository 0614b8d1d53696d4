' Starting programs is refused by name, before anything runs.
'? 4:9 Shell is not supported by this macro language
Sub main()
    x = Shell("notepad.exe")
End Sub
