' The letters of date patterns mean the same in capitals; the half of the day keeps the case that it is written in.
'> 2026-03-08 16:05
'> 04:05 pm
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "YYYY-MM-DD HH:NN")
    Debug.Print Format(d, "HH:NN am/pm")
End Sub
