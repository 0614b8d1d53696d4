' LOF is the length in bytes; Seek the next byte from 1, as function and as statement.
'> 8 1
'> 5 two
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "one": Print #1, "two";
    Close #1
    Open "C:\a.txt" For Input As #1
    Debug.Print LOF(1) & " " & Seek(1)
    Seek #1, 6
    Line Input #1, s
    Seek #1, 5
    Debug.Print Seek(1) & " ";
    Seek #1, 6
    Line Input #1, s
    Debug.Print s
End Sub
