' The whole part of a date is a day, the fraction its time.
'> 2
'> 0
'> 36526
'> 0.75
Sub main()
    Debug.Print "" & CDbl(#1/1/1900#)
    Debug.Print "" & CDbl(#12/30/1899#)
    Debug.Print "" & CDbl(#1/1/2000#)
    Debug.Print "" & CDbl(#12/30/1899 6:00:00 PM#)
End Sub
