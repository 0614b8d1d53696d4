' Write # puts commas between, quotation marks around texts and number signs around truths, Null, dates and errors.
'> "a b",1.5,#TRUE#,#FALSE#,#NULL#,#2020-01-02#,#ERROR 7#,
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Write #1, "a b", 1.5, True, False, Null, #1/2/2020#, CVErr(7), Empty
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
