' Twelve o'clock is noon with PM and midnight with AM.
'> 0.5 0 0.520833333333333
Sub main()
    Debug.Print CDbl(#12:00:00 PM#) & " " & CDbl(#12:00:00 AM#) & " " & CDbl(TimeValue("12:30 pm"))
End Sub
