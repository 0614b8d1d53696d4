' Minutes and seconds beyond 59 move on to the next hour or minute, negative ones back.
'> 11:45:00 AM
'> 1:01:05 AM
'> 6:00:00 PM
'> 12/31/1899 1:00:00 AM
Sub main()
    Debug.Print TimeSerial(12, -15, 0)
    Debug.Print TimeSerial(0, 60, 65)
    Debug.Print TimeSerial(18, 0, 0)
    Debug.Print TimeSerial(25, 0, 0)
End Sub
