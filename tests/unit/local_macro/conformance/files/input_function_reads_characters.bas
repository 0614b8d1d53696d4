' Input(n, #number) reads so many characters, line ends included; beyond the end it is error 62.
'> ab 13 10 c
'> 62
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "ab": Print #1, "c"
    Close #1
    Open "C:\a.txt" For Input As #1
    Debug.Print Input(2, #1) & " " & Asc(Input(1, 1)) & " " & Asc(Input(1, #1)) & " " & Input(1, #1)
    On Error Resume Next
    s = Input(9, #1)
    Debug.Print Err.Number & ""
End Sub
