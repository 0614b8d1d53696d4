' A negative number and an empty character are error 5, Null as the character gives Null.
'> 5 5 5 True
Sub main()
    On Error Resume Next
    x = Space(-1): e = Err.Number: Err.Clear
    x = String(-1, "a"): e = e & " " & Err.Number: Err.Clear
    x = String(2, ""): e = e & " " & Err.Number
    Debug.Print e & " " & IsNull(String(2, Null))
End Sub
