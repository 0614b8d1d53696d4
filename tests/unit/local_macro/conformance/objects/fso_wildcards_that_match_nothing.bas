' Wildcards that match no file are error 53, those that match no folder error 76; so is a folder that isn't there.
'> 53 53 53
'> 76 76 76
'> 76 76
Sub main()
    Dim fso As Object, s As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\a"
    fso.CreateFolder "C:\b"
    On Error Resume Next
    fso.CopyFile "C:\a\*.pdf", "C:\b\": s = Err.Number & " ": Err.Clear
    fso.MoveFile "C:\a\*.pdf", "C:\b\": s = s & Err.Number & " ": Err.Clear
    fso.DeleteFile "C:\a\*.pdf": Debug.Print s & Err.Number: Err.Clear
    fso.CopyFolder "C:\a\*", "C:\b\": s = Err.Number & " ": Err.Clear
    fso.MoveFolder "C:\a\*", "C:\b\": s = s & Err.Number & " ": Err.Clear
    fso.DeleteFolder "C:\a\*": Debug.Print s & Err.Number: Err.Clear
    fso.DeleteFile "C:\none\*": s = Err.Number & " ": Err.Clear
    fso.CreateTextFile("C:\a\1.txt").Close
    fso.CopyFile "C:\a\*", "C:\none": Debug.Print s & Err.Number
End Sub
