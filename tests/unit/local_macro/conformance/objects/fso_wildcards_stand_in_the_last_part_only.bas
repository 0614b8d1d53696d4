' Only the last part of a source may have wildcards, and no part of a target: error 52.
'> 52 52 52
Sub main()
    Dim fso As Object, s As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\a"
    fso.CreateTextFile("C:\a\1.txt").Close
    On Error Resume Next
    fso.DeleteFile "C:\?\1.txt": s = Err.Number & " ": Err.Clear
    fso.CopyFile "C:\a\1.txt", "C:\a\*.bak": s = s & Err.Number & " ": Err.Clear
    fso.MoveFolder "C:\a", "C:\b?"
    Debug.Print s & Err.Number
End Sub
