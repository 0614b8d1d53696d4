' The fields of one Input # may stand in several lines.
'> 1 2 3
Sub main()
    Dim a, b, c
    Open "C:\a.txt" For Output As #1
    Print #1, "1": Print #1, "2,3"
    Close #1
    Open "C:\a.txt" For Input As #1
    Input #1, a, b, c
    Debug.Print a & " " & b & " " & c
End Sub
