' With a $ the function gives a String, which can't be Null: error 94.
'> String String
'> 94 94 94
Sub main()
    Debug.Print TypeName(Left$("abc", 1)) & " " & TypeName(Hex$(10))
    On Error Resume Next
    x = Left$(Null, 1): e = Err.Number: Err.Clear
    x = UCase$(Null): e = e & " " & Err.Number: Err.Clear
    x = Trim$(Null): e = e & " " & Err.Number
    Debug.Print e
End Sub
