' A statement that fails has assigned nothing.
'> ab
Sub main()
    Dim s As String
    s = "a"
    s = s & "b"
    On Error Resume Next
    s = s & "c" & CStr(1 / 0)
    Debug.Print s
End Sub
