' Truths are True and False, Null is Null, Empty nothing, errors and dates as their texts.
'> [True][Null][][Error 7][1/2/2020][1.25]
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "["; True; "]["; Null; "]["; Empty; "]["; CVErr(7); "]["; #1/2/2020#; "]";
    Print #1, "[" & CCur(1.25) & "]"
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
