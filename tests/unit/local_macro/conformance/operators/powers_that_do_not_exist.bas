' A negative number to a fraction and 0 to a negative power are error 5; what is too large is error 6.
'> 5 5 6
Sub main()
    On Error Resume Next
    x = (-8) ^ 0.5: e = Err.Number: Err.Clear
    x = 0 ^ -1: e = e & " " & Err.Number: Err.Clear
    x = 10 ^ 400: e = e & " " & Err.Number
    Debug.Print e
End Sub
