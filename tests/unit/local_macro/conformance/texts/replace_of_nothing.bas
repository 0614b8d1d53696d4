' Nothing to look for leaves the text; Null is error 94, a start of 0 error 5.
'> abc []
'> 94 5
Sub main()
    Debug.Print Replace("abc", "", "x") & " [" & Replace("", "a", "b") & "]"
    On Error Resume Next
    x = Replace(Null, "a", "b"): e = Err.Number: Err.Clear
    x = Replace("abc", "a", "b", 0): e = e & " " & Err.Number
    Debug.Print e
End Sub
