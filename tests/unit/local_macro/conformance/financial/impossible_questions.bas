' Amounts and periods that make no sense are error 5.
'> 5 5 5 5
Sub main()
    Dim flows(1) As Double
    flows(0) = 100: flows(1) = 200
    On Error Resume Next
    x = SLN(100, 10, 0): e = Err.Number: Err.Clear
    x = Pmt(0.1, 0, 100): e = e & " " & Err.Number: Err.Clear
    x = IPmt(0.1, 5, 4, 100): e = e & " " & Err.Number: Err.Clear
    x = IRR(flows): e = e & " " & Err.Number
    Debug.Print e
End Sub
