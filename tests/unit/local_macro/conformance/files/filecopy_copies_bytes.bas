' FileCopy copies over what is there; source and folder must exist.
'> 5 53 76
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "abc"
    Close #1
    FileCopy "C:\a.txt", "C:\b.txt"
    s = FileLen("C:\b.txt")
    On Error Resume Next
    FileCopy "C:\none.txt", "C:\c.txt"
    s = s & " " & Err.Number: Err.Clear
    FileCopy "C:\a.txt", "C:\none\c.txt"
    Debug.Print s & " " & Err.Number
End Sub
