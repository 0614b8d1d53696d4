' Before day 0 the fraction is the time all the same: -1.25 is six o'clock of the day before.
'> 12/29/1899 6:00:00 AM
'> -1.75
Sub main()
    Debug.Print CDate(-1.25)
    Debug.Print "" & CDbl(#12/29/1899 6:00:00 PM#)
End Sub
