' w counts the days from the first day of the week, ww the weeks from the first week of the year.
'> 1 7
'> 11 1 53
Sub main()
    Debug.Print Format(#3/8/2026#, "w") & " " & Format(#3/8/2026#, "w", vbMonday)
    Debug.Print Format(#3/8/2026#, "ww") & " " & Format(#1/1/2027#, "ww") & " " & _
        Format(#1/1/2027#, "ww", vbMonday, vbFirstFourDays)
End Sub
