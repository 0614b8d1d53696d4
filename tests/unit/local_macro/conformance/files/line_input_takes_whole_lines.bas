' Line Input # takes commas and quotation marks as they are, and any line end.
'> a,"b"
'> c
'> d
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "a,""b""" & vbCr & "c" & vbLf & "d";
    Close #1
    Open "C:\a.txt" For Input As #1
    Do Until EOF(1)
        Line Input #1, s
        Debug.Print s
    Loop
End Sub
