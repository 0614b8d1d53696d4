' Closing a number that isn't open is no error.
'> fine
Sub main()
    Close #5
    Debug.Print "fine"
End Sub
