' x / 0 is error 11, 0 / 0 is an overflow, \ and Mod by zero are always error 11.
'> 11 6 11 11 11
Sub main()
    On Error Resume Next
    zero = 0
    x = 1 / zero: e = Err.Number: Err.Clear
    x = 0 / zero: e = e & " " & Err.Number: Err.Clear
    x = 1 \ zero: e = e & " " & Err.Number: Err.Clear
    x = 0 \ zero: e = e & " " & Err.Number: Err.Clear
    x = 1 Mod zero: e = e & " " & Err.Number
    Debug.Print e
End Sub
