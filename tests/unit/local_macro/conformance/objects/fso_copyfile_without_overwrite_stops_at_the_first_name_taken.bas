' CopyFile with wildcards and without overwriting ends with error 58 at the first name that is taken; what was copied before stays.
'> 58 True False
Sub main()
    Dim fso As Object, n As Variant
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\a"
    fso.CreateFolder "C:\b"
    For Each n In Array("a\1.txt", "a\2.txt", "a\3.txt", "b\2.txt")
        fso.CreateTextFile("C:\" & n).Close
    Next
    On Error Resume Next
    fso.CopyFile "C:\a\*.txt", "C:\b\", False
    Debug.Print Err.Number & " " & fso.FileExists("C:\b\1.txt") & " " & fso.FileExists("C:\b\3.txt")
End Sub
