' A file with the read-only attribute can be read and not written.
'> 75
'> x
Sub main()
    Dim s As String
    Open "C:\a.txt" For Output As #1
    Print #1, "x"
    Close #1
    SetAttr "C:\a.txt", vbReadOnly
    On Error Resume Next
    Open "C:\a.txt" For Append As #1
    Debug.Print Err.Number & ""
    Open "C:\a.txt" For Input As #1
    Line Input #1, s
    Debug.Print s
End Sub
