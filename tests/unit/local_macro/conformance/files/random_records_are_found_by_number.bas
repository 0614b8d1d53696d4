' A Random file has records of one length, read and written in any order.
'> 24
'> third first
Sub main()
    Dim s As String * 8
    Open "C:\r" For Random As #1 Len = 8
    s = "third"
    Put #1, 3, s
    s = "first"
    Put #1, 1, s
    Debug.Print LOF(1) & ""
    Get #1, 3, s
    Debug.Print RTrim(s) & " ";
    Get #1, 1, s
    Debug.Print RTrim(s)
End Sub
