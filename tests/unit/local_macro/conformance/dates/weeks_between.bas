' With w DateDiff counts spans of seven days, with ww the first days of weeks that lie between.
'> 1 2
'> 1 0 1
Sub main()
    Debug.Print DateDiff("w", #1/1/2024#, #1/14/2024#) & " " & DateDiff("w", #1/1/2024#, #1/15/2024#)
    Debug.Print DateDiff("ww", #1/6/2024#, #1/7/2024#) & " " & DateDiff("ww", #1/6/2024#, #1/7/2024#, vbMonday) & " " & _
        DateDiff("ww", #1/6/2024#, #1/8/2024#, vbMonday)
End Sub
