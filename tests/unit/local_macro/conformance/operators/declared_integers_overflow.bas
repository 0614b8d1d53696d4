' What both operands are declared as decides the range of the result, not what it is assigned to.
'> 6 6 6
Sub main()
    Dim i As Integer, n As Long, b As Byte
    On Error Resume Next
    i = 200
    n = i * i: e = Err.Number: Err.Clear
    n = 256 * 256: e = e & " " & Err.Number: Err.Clear
    b = 200
    n = b + b: e = e & " " & Err.Number
    Debug.Print e
End Sub
