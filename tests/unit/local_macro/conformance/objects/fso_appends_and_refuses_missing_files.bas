' OpenTextFile for appending goes on at the end; a missing file is error 53 unless it may be made.
'> 4
'> 53
'> True
Sub main()
    Dim fso As Object, s As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateTextFile("C:\a.txt").Write "ab"
    fso.OpenTextFile("C:\a.txt", 8).Write "cd"
    Debug.Print fso.GetFile("C:\a.txt").Size & ""
    On Error Resume Next
    Set s = fso.OpenTextFile("C:\none.txt")
    Debug.Print Err.Number & ""
    Err.Clear
    Set s = fso.OpenTextFile("C:\new.txt", 2, True)
    Debug.Print fso.FileExists("C:\new.txt")
End Sub
