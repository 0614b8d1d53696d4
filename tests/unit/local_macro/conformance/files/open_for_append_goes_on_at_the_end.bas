' Append makes the file when it is missing and writes behind what it holds.
'> one
'> two
Sub main()
    Dim i As Long, s As String
    For i = 1 To 2
        Open "C:\a.txt" For Append As #1
        Print #1, Array("", "one", "two")(i)
        Close #1
    Next
    Open "C:\a.txt" For Input As #1
    Do Until EOF(1)
        Line Input #1, s
        Debug.Print s
    Loop
End Sub
