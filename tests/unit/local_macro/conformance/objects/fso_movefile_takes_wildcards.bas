' MoveFile with wildcards moves every file that matches into the folder.
'> False False True
'> True True False
Sub main()
    Dim fso As Object, n As Variant, s As String, t As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\a"
    fso.CreateFolder "C:\b"
    For Each n In Array("p1.txt", "p2.txt", "q.txt")
        fso.CreateTextFile("C:\a\" & n).Close
    Next
    fso.MoveFile "C:\a\p*", "C:\b"
    For Each n In Array("p1.txt", "p2.txt", "q.txt")
        s = s & " " & fso.FileExists("C:\a\" & n)
        t = t & " " & fso.FileExists("C:\b\" & n)
    Next
    Debug.Print Trim(s)
    Debug.Print Trim(t)
End Sub
