' Spc(n) writes blanks, Tab(n) goes to column n, on the next line when that is passed already.
'> a   b
'>     c
'> abcdef
'>   g
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "a"; Spc(3); "b"
    Print #1, Tab(5); "c"
    Print #1, "abcdef"; Tab(3); "g"
    Close #1
    Open "C:\a.txt" For Input As #1
    Do Until EOF(1)
        Line Input #1, s
        Debug.Print s
    Loop
End Sub
