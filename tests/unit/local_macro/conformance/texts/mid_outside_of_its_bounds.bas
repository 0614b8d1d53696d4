' A start of 0 and a negative length are error 5.
'> 5 5
Sub main()
    On Error Resume Next
    x = Mid("abc", 0): e = Err.Number: Err.Clear
    x = Mid("abc", 1, -1): e = e & " " & Err.Number
    Debug.Print e
End Sub
