' In a Binary file a text is its bytes alone; Get reads as many as the variable holds characters.
'> 5 [lo] [hel]
Sub main()
    Dim s As String, f As String * 3
    Open "C:\b" For Binary As #1
    Put #1, , "hello"
    s = Space(2)
    Get #1, 4, s
    Get #1, 1, f
    Debug.Print LOF(1) & " [" & s & "] [" & f & "]"
End Sub
