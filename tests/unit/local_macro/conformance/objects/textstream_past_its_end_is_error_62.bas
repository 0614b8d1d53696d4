' Reading at the end is error 62, writing to a reader 54.
'> 62 54
Sub main()
    Dim fso As Object, s As Object, t As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateTextFile("C:\a.txt").Close
    Set s = fso.OpenTextFile("C:\a.txt")
    On Error Resume Next
    t = s.ReadLine: t = Err.Number: Err.Clear
    s.Write "x"
    Debug.Print t & " " & Err.Number
End Sub
