' Operators take single values: arrays and error values are error 13.
'> 13 13 13
Sub main()
    On Error Resume Next
    x = Array(1) + 1: e = Err.Number: Err.Clear
    x = Array(1) = Array(1): e = e & " " & Err.Number: Err.Clear
    x = "a" & CVErr(1): e = e & " " & Err.Number
    Debug.Print e
End Sub
