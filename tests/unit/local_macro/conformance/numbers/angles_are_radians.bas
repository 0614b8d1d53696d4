' Sin, Cos, Tan and Atn reckon in radians.
'> 3.14159265358979
'> 1 -1 1
Sub main()
    pi = 4 * Atn(1)
    Debug.Print "" & pi
    Debug.Print Round(Sin(pi / 2), 12) & " " & Round(Cos(pi), 12) & " " & Round(Tan(pi / 4), 12)
End Sub
