' A comma moves to the next zone of 14 columns; a text that fills its zone leaves one empty.
'> ab            c             d
'> 12345678901234              x
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "ab", "c", "d"
    Print #1, "12345678901234", "x"
    Close #1
    Open "C:\a.txt" For Input As #1
    Do Until EOF(1)
        Line Input #1, s
        Debug.Print s
    Loop
End Sub
