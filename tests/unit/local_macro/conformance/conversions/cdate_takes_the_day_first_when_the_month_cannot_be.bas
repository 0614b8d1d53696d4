' Month and day change places when the first number is no month.
'> 1/13/2020
'> 1/13/2020
Sub main()
    Debug.Print CDate("1/13/2020")
    Debug.Print CDate("13/1/2020")
End Sub
