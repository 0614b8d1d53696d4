' A negative length is error 5.
'> 5 5
Sub main()
    On Error Resume Next
    x = Left("abc", -1): e = Err.Number: Err.Clear
    x = Right("abc", -1): e = e & " " & Err.Number
    Debug.Print e
End Sub
