' Line and Column of a TextStream count from 1, AtEndOfLine is True at a line's end; Skip and SkipLine pass over text.
'> 1 1
'> 1 3 True
'> 2 1 cd
Sub main()
    Dim fso As Object, s As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateTextFile("C:\a.txt").Write "ab" & vbCrLf & "xcd"
    Set s = fso.OpenTextFile("C:\a.txt")
    Debug.Print s.Line & " " & s.Column
    s.Skip 2
    Debug.Print s.Line & " " & s.Column & " " & s.AtEndOfLine
    s.SkipLine
    Debug.Print s.Line & " " & s.Column & " ";
    s.Skip 1
    Debug.Print s.Read(2)
End Sub
