' A date is written as year-month-day, a time as hours:minutes:seconds of 24, a moment as both.
'> #1999-12-31#,#13:05:09#,#1999-12-31 13:05:09#
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Write #1, #12/31/1999#, #1:05:09 PM#, #12/31/1999 1:05:09 PM#
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
