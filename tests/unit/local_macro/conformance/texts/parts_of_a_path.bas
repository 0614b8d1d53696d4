' Split and Join take a path apart and put it together.
'> report.txt C:/work/report.txt
Sub main()
    parts = Split("C:\work\report.txt", "\")
    Debug.Print parts(UBound(parts)) & " " & Join(parts, "/")
End Sub
