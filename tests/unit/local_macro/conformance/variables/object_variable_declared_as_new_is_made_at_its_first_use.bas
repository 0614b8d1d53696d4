' A variable declared As New gets its object when it is first used, and again after it was set to Nothing.
'> False 1 0
Sub main()
    Dim c As New Collection, s As String
    s = (c Is Nothing) & ""
    c.Add "x"
    s = s & " " & c.Count
    Set c = Nothing
    s = s & " " & c.Count
    Debug.Print s
End Sub
