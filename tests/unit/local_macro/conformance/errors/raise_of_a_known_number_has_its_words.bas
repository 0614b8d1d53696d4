' Without a description the error has the language's words for its number.
'> Subscript out of range
'> Application-defined or object-defined error
Sub main()
    On Error Resume Next
    Err.Raise 9
    Debug.Print Err.Description
    Err.Raise 1000
    Debug.Print Err.Description
End Sub
