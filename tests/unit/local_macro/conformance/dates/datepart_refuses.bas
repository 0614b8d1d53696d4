' An interval that doesn't exist, a first day beyond 7 and a first week beyond 3 are error 5.
'> 5 5 5
Sub main()
    On Error Resume Next
    x = DatePart("x", Now): e = Err.Number: Err.Clear
    x = DatePart("w", Now, 8): e = e & " " & Err.Number: Err.Clear
    x = DatePart("ww", Now, 1, 4): e = e & " " & Err.Number
    Debug.Print e
End Sub
