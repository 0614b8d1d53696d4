' Weekdays go on without a break before day 0, which was a Saturday.
'> 7 6 1
Sub main()
    Debug.Print Weekday(0) & " " & Weekday(-1) & " " & Weekday(1)
End Sub
