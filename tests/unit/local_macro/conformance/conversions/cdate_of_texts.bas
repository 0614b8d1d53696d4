' The text of a date may have month names, a weekday, two digits for the year and a time.
'> 5/4/2020
'> 5/4/2020
'> 5/4/2020 3:30:00 PM
'> 3:30:00 PM
'> 5/4/2020
'> 5/4/2020
'> 5/1/2020
Sub main()
    Debug.Print CDate("4 May 2020")
    Debug.Print CDate("Monday, May 4, 2020")
    Debug.Print CDate("5/4/20 15:30")
    Debug.Print CDate("3:30 pm")
    Debug.Print CDate("2020-05-04")
    Debug.Print CDate("4-May-2020")
    Debug.Print CDate("May 2020")
End Sub
