' An error value becomes a text and nothing else.
'> 13 13 13
Sub main()
    On Error Resume Next
    x = CLng(CVErr(5)): e = Err.Number: Err.Clear
    x = CDate(CVErr(5)): e = e & " " & Err.Number: Err.Clear
    x = CBool(CVErr(5)): e = e & " " & Err.Number
    Debug.Print e
End Sub
