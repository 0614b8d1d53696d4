' Put overwrites bytes in place and makes the file longer when it has to.
'> heLLo!
Sub main()
    Dim s As String
    Open "C:\b" For Binary As #1
    Put #1, , "hello"
    Put #1, 3, "LL"
    Put #1, 6, "!"
    s = Space(6)
    Get #1, 1, s
    Debug.Print s
End Sub
