' A folder that is there can't be made (75), nor one without its parent (76); one that isn't empty can't be removed (75).
'> 75 76 75 76
Sub main()
    Dim s As String
    MkDir "C:\d"
    Open "C:\d\a.txt" For Output As #1
    Close #1
    On Error Resume Next
    MkDir "C:\d"
    s = Err.Number: Err.Clear
    MkDir "C:\none\d"
    s = s & " " & Err.Number: Err.Clear
    RmDir "C:\d"
    s = s & " " & Err.Number: Err.Clear
    RmDir "C:\none"
    Debug.Print s & " " & Err.Number
End Sub
