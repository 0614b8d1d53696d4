' What is no number is error 13, decimals below -1 are error 5.
'> 13 5
Sub main()
    On Error Resume Next
    x = FormatNumber("abc"): e = Err.Number: Err.Clear
    x = FormatNumber(1, -2): e = e & " " & Err.Number
    Debug.Print e
End Sub
