' Payments may be due at the beginning of their periods: the first one bears no interest.
'> 87.9691 0
Sub main()
    Debug.Print Round(Pmt(0.01, 12, -1000, 0, 1), 4) & " " & IPmt(0.1 / 12, 1, 36, 8000, 0, 1)
End Sub
