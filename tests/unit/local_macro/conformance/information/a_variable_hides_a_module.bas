' A variable may have the name of one of the language's modules.
'> 2
Sub main()
    Dim strings As New Collection
    strings.Add "a"
    strings.Add "b"
    Debug.Print "" & strings.Count
End Sub
