' In a Random file a text of any length takes two bytes for its length.
'> [abc] 59
Sub main()
    Dim s As String, t As String
    Open "C:\r" For Random As #1 Len = 5
    s = "abc"
    Put #1, 1, s
    Get #1, 1, t
    Debug.Print "[" & t & "] ";
    On Error Resume Next
    s = "abcd"
    Put #1, 1, s
    Debug.Print Err.Number & ""
End Sub
