' A parenthesis at the beginning of a list belongs to an expression.
'> 9 a
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, (1 + 2) * 3 & " "; ("a")
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
