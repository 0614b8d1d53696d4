' Print # gives a number a sign or blank in front and a blank behind; texts stand as they are.
'>  5 -5 a 1.5 end
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, 5; -5; "a"; 1.5; "end"
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
