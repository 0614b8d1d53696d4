' Before anything is assigned, a String * n holds n characters of code 0.
'> 2 0
Sub main()
    Dim s As String * 2
    Debug.Print Len(s) & " " & Asc(s)
End Sub
