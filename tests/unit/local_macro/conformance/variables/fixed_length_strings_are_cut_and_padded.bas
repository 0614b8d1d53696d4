' A String * n always has n characters: longer texts are cut, shorter ones filled with blanks.
'> [abc][ab ]
'> 3
Sub main()
    Dim s As String * 3, t As String * 3
    s = "abcdef"
    t = "ab"
    Debug.Print "[" & s & "][" & t & "]"
    Debug.Print Len(t) & ""
End Sub
