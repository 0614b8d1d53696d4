' A number that rounds into the range is no overflow.
'> 32767 -32768 255 0
'> 6 6 6 6
Sub main()
    Debug.Print CInt(32767.49) & " " & CInt(-32768.5) & " " & CByte(255.4) & " " & CByte(-0.5)
    On Error Resume Next
    x = CInt(32767.5): e = Err.Number: Err.Clear
    x = CInt(-32769): e = e & " " & Err.Number: Err.Clear
    x = CByte(255.5): e = e & " " & Err.Number: Err.Clear
    x = CLng("2147483648"): e = e & " " & Err.Number
    Debug.Print e
End Sub
