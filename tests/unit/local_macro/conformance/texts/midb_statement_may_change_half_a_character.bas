' MidB with an odd place or length changes half of a character.
'> 634
'> 122
Sub main()
    Dim s As String
    s = "z"
    MidB(s, 2, 1) = ChrB(2)
    Debug.Print AscW(s) & ""
    MidB(s, 2) = ChrB(0)
    Debug.Print AscW(s) & ""
End Sub
