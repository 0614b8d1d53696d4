' Digits that have no place stand in front of the first one.
'> 123-45
Sub main()
    Debug.Print Format(12345, "0-00")
End Sub
