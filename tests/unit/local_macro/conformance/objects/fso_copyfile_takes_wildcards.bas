' CopyFile with wildcards copies every file that matches into the folder that is the target, with or without a separator at its end.
'> True True False False
'> True
Sub main()
    Dim fso As Object, n As Variant, s As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\a"
    fso.CreateFolder "C:\b"
    fso.CreateFolder "C:\c"
    fso.CreateFolder "C:\a\folder.pdf"
    For Each n In Array("1.pdf", "2.PDF", "3.txt")
        fso.CreateTextFile("C:\a\" & n).Close
    Next
    fso.CopyFile "C:\a\*.pdf", "C:\b\"
    For Each n In Array("1.pdf", "2.pdf", "3.txt")
        s = s & fso.FileExists("C:\b\" & n) & " "
    Next
    Debug.Print s & fso.FolderExists("C:\b\folder.pdf")
    fso.CopyFile "C:\a\?.txt", "C:\c"
    Debug.Print fso.FileExists("C:\c\3.txt")
End Sub
