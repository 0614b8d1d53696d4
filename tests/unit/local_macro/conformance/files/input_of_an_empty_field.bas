' An empty field is 0 for a number, the empty text for a String and Empty for a Variant.
'> 0 [] True 5
Sub main()
    Dim n As Long, s As String, v As Variant, m As Long
    Open "C:\a.txt" For Output As #1
    Print #1, ",,,5"
    Close #1
    Open "C:\a.txt" For Input As #1
    Input #1, n, s, v, m
    Debug.Print n & " [" & s & "] " & IsEmpty(v) & " " & m
End Sub
