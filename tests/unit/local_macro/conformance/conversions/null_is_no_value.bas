' Null can't become any declared type: error 94.
'> 94 94 94 94 94 94
Sub main()
    On Error Resume Next
    x = CInt(Null): e = Err.Number: Err.Clear
    x = CDbl(Null): e = e & " " & Err.Number: Err.Clear
    x = CStr(Null): e = e & " " & Err.Number: Err.Clear
    x = CBool(Null): e = e & " " & Err.Number: Err.Clear
    x = CDate(Null): e = e & " " & Err.Number: Err.Clear
    x = CCur(Null): e = e & " " & Err.Number
    Debug.Print e
End Sub
