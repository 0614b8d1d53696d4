' An error that nobody handles ends the macro with its number and description.
'> before
'! 600 My own words
Sub main()
    Debug.Print "before"
    Err.Raise 600, "me", "My own words"
    Debug.Print "after"
End Sub
