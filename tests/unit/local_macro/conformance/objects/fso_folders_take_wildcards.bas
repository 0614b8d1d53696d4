' CopyFolder, MoveFolder and DeleteFolder with wildcards take the folders that match, and no files.
'> True True False False
'> False True
'> False True
Sub main()
    Dim fso As Object, n As Variant
    Set fso = CreateObject("Scripting.FileSystemObject")
    For Each n In Array("C:\a", "C:\a\s1", "C:\a\s2", "C:\a\t", "C:\b", "C:\c")
        fso.CreateFolder n
    Next
    fso.CreateTextFile("C:\a\s1\in.txt").Close
    fso.CreateTextFile("C:\a\s.txt").Close
    fso.CopyFolder "C:\a\s*", "C:\b"
    Debug.Print fso.FileExists("C:\b\s1\in.txt") & " " & fso.FolderExists("C:\b\s2") & " " & fso.FolderExists("C:\b\t") & " " & fso.FileExists("C:\b\s.txt")
    fso.MoveFolder "C:\b\*2", "C:\c\"
    Debug.Print fso.FolderExists("C:\b\s2") & " " & fso.FolderExists("C:\c\s2")
    fso.DeleteFolder "C:\a\s?"
    Debug.Print fso.FolderExists("C:\a\s1") & " " & fso.FileExists("C:\a\s.txt")
End Sub
