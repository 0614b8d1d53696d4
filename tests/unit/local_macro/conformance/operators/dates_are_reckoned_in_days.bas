' Adding to a date moves it by days, a fraction by a part of the day.
'> 3/1/2024
'> 1/1/2024 12:00:00 PM
'> 366
'> 0.25
Sub main()
    Debug.Print #2/28/2024# + 2
    Debug.Print #1/1/2024# + 0.5
    Debug.Print "" & (#1/1/2025# - #1/1/2024#)
    Debug.Print "" & (#6:00:00 PM# - #12:00:00 PM#)
End Sub
