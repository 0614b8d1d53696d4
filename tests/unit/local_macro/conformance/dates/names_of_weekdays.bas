' WeekdayName counts from Sunday, or from the day that it is given.
'> Sunday Saturday Sun Monday Tue
'> 5 5
Sub main()
    Debug.Print WeekdayName(1) & " " & WeekdayName(7) & " " & WeekdayName(1, True) & " " & _
        WeekdayName(1, False, vbMonday) & " " & WeekdayName(2, True, vbMonday)
    On Error Resume Next
    x = WeekdayName(0): e = Err.Number: Err.Clear
    x = WeekdayName(8): e = e & " " & Err.Number
    Debug.Print e
End Sub
