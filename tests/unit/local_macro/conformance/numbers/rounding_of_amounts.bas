' Round takes Currency exactly: a half goes to the even digit.
'> 2.12 2.14 -0.5
Sub main()
    Debug.Print Round(2.125@, 2) & " " & Round(2.135@, 2) & " " & Round(-0.55@, 1) + 0.1@
End Sub
