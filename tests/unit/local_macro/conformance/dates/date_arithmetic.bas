'> 2/29/2024
'> 2/28/2023
'> 3/1/2023
'>  366 
'>  2 
'>  8  3  2026  1 
'> March Tue
'> 1/1/2000 1:30:00 AM
'> 12:00:00 PM
Sub main()
    Debug.Print DateAdd("m", 1, #1/31/2024#)
    Debug.Print DateAdd("yyyy", -1, #2/29/2024#)
    Debug.Print DateSerial(2023, 2, 29)
    Debug.Print DateDiff("d", #1/1/2024#, #1/1/2025#)
    Debug.Print DateDiff("m", #1/31/2024#, #3/1/2024#)
    Debug.Print Day(#3/8/2026#); Month(#3/8/2026#); Year(#3/8/2026#); Weekday(#3/8/2026#)
    Debug.Print MonthName(3) & " " & WeekdayName(3, True)
    Debug.Print #1/1/2000# + TimeSerial(1, 30, 0)
    Debug.Print CDate(0.5)
End Sub
