' Bringing another window to the front is refused by name.
'? 4:5 AppActivate is not supported by this macro language
Sub main()
    AppActivate "Editor"
End Sub
