' Round takes a half to the even digit, at any place behind the point.
'> 2 4 -2 0
'> 0.12 0.14 2.35
'> 1.5
Sub main()
    Debug.Print Round(2.5) & " " & Round(3.5) & " " & Round(-2.5) & " " & Round(0.5)
    Debug.Print Round(0.125, 2) & " " & Round(0.135, 2) & " " & Round(2.3456, 2)
    Debug.Print "" & Round(1.5, 10)
End Sub
