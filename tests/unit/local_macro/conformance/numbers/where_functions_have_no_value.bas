' The root of a negative number and the logarithm of 0 are error 5, a power of e that is too large error 6.
'> 5 5 5 6
Sub main()
    On Error Resume Next
    x = Sqr(-1): e = Err.Number: Err.Clear
    x = Log(0): e = e & " " & Err.Number: Err.Clear
    x = Log(-1): e = e & " " & Err.Number: Err.Clear
    x = Exp(710): e = e & " " & Err.Number
    Debug.Print e
End Sub
