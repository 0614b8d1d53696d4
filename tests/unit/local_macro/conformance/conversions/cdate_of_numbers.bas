' A number becomes the day that it counts, with its fraction as the time.
'> 1/1/2000
'> 1/1/2000 6:00:00 AM
'> 6:00:00 PM
Sub main()
    Debug.Print CDate(36526)
    Debug.Print CDate(36526.25)
    Debug.Print CDate(0.75)
End Sub
