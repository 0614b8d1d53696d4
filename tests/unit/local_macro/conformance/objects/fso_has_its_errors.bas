' Missing files are error 53, missing folders 76, names that are taken 58.
'> 53 76 58 58
Sub main()
    Dim fso As Object, s As String, o As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateTextFile("C:\a.txt").Close
    fso.CreateTextFile("C:\b.txt").Close
    fso.CreateFolder "C:\d"
    On Error Resume Next
    Set o = fso.GetFile("C:\none.txt"): s = Err.Number: Err.Clear
    Set o = fso.GetFolder("C:\none"): s = s & " " & Err.Number: Err.Clear
    fso.CreateFolder "C:\d": s = s & " " & Err.Number: Err.Clear
    fso.MoveFile "C:\a.txt", "C:\b.txt"
    Debug.Print s & " " & Err.Number
End Sub
