' Negative lengths, a start of 0 and codes beyond 255 are error 5; Null is Null.
'> True True 5 5 5
Sub main()
    e = IsNull(LeftB(Null, 1)) & " " & IsNull(MidB(Null, 1))
    On Error Resume Next
    x = LeftB("a", -1): e = e & " " & Err.Number: Err.Clear
    x = MidB("a", 0): e = e & " " & Err.Number: Err.Clear
    x = ChrB(256): e = e & " " & Err.Number
    Debug.Print e
End Sub
