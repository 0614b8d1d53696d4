' FileExists is True for files, FolderExists for folders.
'> True False False True
Sub main()
    Dim fso As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\d"
    fso.CreateTextFile("C:\a.txt").Close
    Debug.Print fso.FileExists("C:\a.txt") & " " & fso.FolderExists("C:\a.txt") & " " & fso.FileExists("C:\d") & " " & fso.FolderExists("C:\d")
End Sub
