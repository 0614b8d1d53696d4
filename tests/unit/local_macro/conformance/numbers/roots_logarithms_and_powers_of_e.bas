' Sqr, Exp and Log; Log is the natural one.
'> 4 0
'> 2.71828182845905
'> 0 1
Sub main()
    Debug.Print Sqr(16) & " " & Sqr(0)
    Debug.Print "" & Exp(1)
    Debug.Print Log(1) & " " & Round(Log(Exp(1)), 12)
End Sub
