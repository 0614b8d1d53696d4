' DeleteFile with wildcards deletes every file that matches, and no folder.
'> False False True True
Sub main()
    Dim fso As Object, n As Variant, s As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\a"
    fso.CreateFolder "C:\a\x.tmp"
    For Each n In Array("1.tmp", "2.tmp", "3.txt")
        fso.CreateTextFile("C:\a\" & n).Close
    Next
    fso.DeleteFile "C:\a\*.tmp"
    For Each n In Array("1.tmp", "2.tmp", "3.txt")
        s = s & fso.FileExists("C:\a\" & n) & " "
    Next
    Debug.Print s & fso.FolderExists("C:\a\x.tmp")
End Sub
