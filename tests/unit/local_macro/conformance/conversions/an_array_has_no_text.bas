' No conversion takes an array: error 13.
'> 13 13 13
Sub main()
    On Error Resume Next
    x = CStr(Array(1)): e = Err.Number: Err.Clear
    x = CDbl(Array(1)): e = e & " " & Err.Number: Err.Clear
    x = CBool(Array(1)): e = e & " " & Err.Number
    Debug.Print e
End Sub
