' For Input, Binary and Random a file may be open under several numbers, each with its own place.
'> one one two
Sub main()
    Dim s As String, t As String, u As String
    Open "C:\a.txt" For Output As #1
    Print #1, "one": Print #1, "two"
    Close #1
    Open "C:\a.txt" For Input As #1
    Open "C:\a.txt" For Input As #2
    Line Input #1, s
    Line Input #2, t
    Line Input #1, u
    Debug.Print s & " " & t & " " & u
End Sub
