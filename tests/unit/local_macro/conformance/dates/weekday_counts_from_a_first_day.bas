' Weekday counts from Sunday, or from the day that it is given.
'> 1 7 2
'! 5 Invalid procedure call or argument
Sub main()
    Debug.Print Weekday(#3/8/2026#) & " " & Weekday(#3/8/2026#, vbMonday) & " " & Weekday(#3/8/2026#, vbSaturday)
    x = Weekday(#3/8/2026#, 8)
End Sub
