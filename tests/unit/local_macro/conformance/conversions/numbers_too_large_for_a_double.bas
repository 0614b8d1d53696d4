' The text of a number beyond the range of a Double is an overflow, not a mismatch, and not numeric.
'> 6 6 False
Sub main()
    On Error Resume Next
    x = CDbl("1e999"): e = Err.Number: Err.Clear
    x = Val(String(400, "9")): e = e & " " & Err.Number
    Debug.Print e & " " & IsNumeric("1e999")
End Sub
