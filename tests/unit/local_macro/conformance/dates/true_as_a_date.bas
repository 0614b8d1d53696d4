' Numbers of other types become days too: True is the day before day 0.
'> 12/29/1899
Sub main()
    Debug.Print CDate(True)
End Sub
