' A bare Do ... Loop is left by Exit Do, which leaves the innermost Do.
'> 1 2 3
Sub main()
    Dim n As Long, s As String
    Do
        Do
            n = n + 1
            Exit Do
        Loop
        s = s & " " & n
        If n = 3 Then Exit Do
    Loop
    Debug.Print Trim(s)
End Sub
