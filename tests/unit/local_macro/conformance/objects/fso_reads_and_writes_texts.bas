' A TextStream writes and reads lines.
'> one
'> two
'> True
Sub main()
    Dim fso As Object, s As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    Set s = fso.CreateTextFile("C:\a.txt", True)
    s.WriteLine "one"
    s.Write "two"
    s.Close
    Set s = fso.OpenTextFile("C:\a.txt", 1)
    Debug.Print s.ReadLine
    Debug.Print s.ReadAll
    Debug.Print s.AtEndOfStream
End Sub
