' A text that is just a number counts days.
'> 1/1/2000
Sub main()
    Debug.Print CDate("36526")
End Sub
