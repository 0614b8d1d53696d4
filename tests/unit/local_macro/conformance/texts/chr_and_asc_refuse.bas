' Codes are 0 to 255; the empty text has no code.
'> 5 5 5
Sub main()
    On Error Resume Next
    x = Chr(256): e = Err.Number: Err.Clear
    x = Chr(-1): e = e & " " & Err.Number: Err.Clear
    x = Asc(""): e = e & " " & Err.Number
    Debug.Print e
End Sub
