' Pmt is what pays a loan back, IPmt its interest and PPmt its principal in one period.
'> 88.8488 -100
'> -66.6667 -75.6232
Sub main()
    Debug.Print Round(Pmt(0.01, 12, -1000), 4) & " " & Pmt(0, 10, 1000)
    Debug.Print Round(IPmt(0.1 / 12, 1, 36, 8000), 4) & " " & Round(PPmt(0.1 / 12, 1, 24, 2000), 4)
End Sub
