' CopyFile, MoveFile and DeleteFile work on single files.
'> True False True
'> False
Sub main()
    Dim fso As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateTextFile("C:\a.txt").Close
    fso.CreateFolder "C:\d"
    fso.CopyFile "C:\a.txt", "C:\d\"
    fso.MoveFile "C:\a.txt", "C:\b.txt"
    Debug.Print fso.FileExists("C:\d\a.txt") & " " & fso.FileExists("C:\a.txt") & " " & fso.FileExists("C:\b.txt")
    fso.DeleteFile "C:\b.txt"
    Debug.Print fso.FileExists("C:\b.txt")
End Sub
