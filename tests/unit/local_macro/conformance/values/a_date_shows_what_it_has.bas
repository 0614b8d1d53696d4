' A date at midnight shows no time, a time of day 0 no date.
'> 3/8/2026
'> 3/8/2026 1:05:09 PM
'> 1:05:09 PM
'> 12:00:00 AM
Sub main()
    Debug.Print #3/8/2026#
    Debug.Print #3/8/2026 1:05:09 PM#
    Debug.Print #1:05:09 PM#
    Debug.Print CDate(0)
End Sub
