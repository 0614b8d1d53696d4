' Year, Month and Day, Hour, Minute and Second are Integers; they read texts and numbers too.
'> 2026 3 8 16 30 15 Integer
'> 2026 12 2020
Sub main()
    d = #3/8/2026 4:30:15 PM#
    Debug.Print Year(d) & " " & Month(d) & " " & Day(d) & " " & Hour(d) & " " & Minute(d) & " " & Second(d) & " " & _
        TypeName(Year(d))
    Debug.Print Year("3/8/2026") & " " & Hour(0.5) & " " & Year(43831)
End Sub
