' A date beyond the year 9999 is error 5, a number beyond an Integer error 6.
'> 5 6
Sub main()
    On Error Resume Next
    x = DateSerial(10000, 1, 1): e = Err.Number: Err.Clear
    x = DateSerial(2024, 1, 40000): e = e & " " & Err.Number
    Debug.Print e
End Sub
