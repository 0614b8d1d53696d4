' A start outside of the text is error 5.
'> 5 5
Sub main()
    On Error Resume Next
    s = "abc"
    Mid(s, 0) = "x": e = Err.Number: Err.Clear
    Mid(s, 4) = "x": e = e & " " & Err.Number
    Debug.Print e
End Sub
