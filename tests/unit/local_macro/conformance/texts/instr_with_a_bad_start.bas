' A start below 1 is error 5, a start that is Null error 94.
'> 5 94
Sub main()
    On Error Resume Next
    x = InStr(0, "abc", "a"): e = Err.Number: Err.Clear
    x = InStr(Null, "abc", "a"): e = e & " " & Err.Number
    Debug.Print e
End Sub
