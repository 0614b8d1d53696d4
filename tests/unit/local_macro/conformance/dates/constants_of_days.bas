' The constants of weekdays count from 1 for Sunday.
'> 1 2 3 4 5 6 7 0
Sub main()
    Debug.Print vbSunday & " " & vbMonday & " " & vbTuesday & " " & vbWednesday & " " & vbThursday & " " & vbFriday & " " & _
        vbSaturday & " " & vbUseSystemDayOfWeek
End Sub
