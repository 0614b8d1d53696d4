' The next free number is asked for before each Open.
'> 1 2
Sub main()
    Dim f As Integer, g As Integer
    f = FreeFile
    Open "C:\a.txt" For Output As #f
    g = FreeFile
    Open "C:\b.txt" For Output As #g
    Debug.Print f & " " & g
End Sub
