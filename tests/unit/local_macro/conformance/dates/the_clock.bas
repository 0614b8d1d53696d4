' Now is the day and the time, Date the day alone, Time the time alone, Timer the seconds since midnight.
'> 11/15/2026 6:00:00 PM
'> 11/15/2026
'> 6:00:00 PM
'> 64800 Single
Sub main()
    Debug.Print Now
    Debug.Print Date
    Debug.Print Time
    Debug.Print Timer & " " & TypeName(Timer)
End Sub
