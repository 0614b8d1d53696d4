' Split and Join take a path apart and put it together.
'> report.txt C:/parts/report.txt
Sub main()
    parts = Split("C:\parts\report.txt", "\")
    Debug.Print parts(UBound(parts)) & " " & Join(parts, "/")
End Sub
