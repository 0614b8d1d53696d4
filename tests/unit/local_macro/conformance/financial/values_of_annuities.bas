' FV is the value at the end, PV the value today, NPer the number of payments.
'> 2581.4034 1233.5562
'> -59777.1459
'> 59.6739
Sub main()
    Debug.Print Round(FV(0.06 / 12, 10, -200, -500, 1), 4) & " " & Round(FV(0.005, 12, -100), 4)
    Debug.Print "" & Round(PV(0.08 / 12, 240, 500), 4)
    Debug.Print "" & Round(NPer(0.01, -100, -1000, 10000, 1), 4)
End Sub
