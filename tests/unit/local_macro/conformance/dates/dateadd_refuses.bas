' An interval that doesn't exist and a date beyond the calendar are error 5; capitals don't matter.
'> 5 5 1/1/2025
Sub main()
    On Error Resume Next
    x = DateAdd("x", 1, #1/1/2024#): e = Err.Number: Err.Clear
    x = DateAdd("yyyy", 8000, #1/1/2024#): e = e & " " & Err.Number
    Debug.Print e & " " & DateAdd("YYYY", 1, #1/1/2024#)
End Sub
