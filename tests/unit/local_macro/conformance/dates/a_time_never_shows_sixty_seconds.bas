' What rounds up to a full minute shows the next minute.
'> 1:00:00 AM
'> 0
Sub main()
    d = CDate(3599.9 / 86400)
    Debug.Print d
    Debug.Print "" & Second(d)
End Sub
