' The days at the end of December belong to week 1 where most of their week lies in January.
'> 53 1 52
Sub main()
    Debug.Print DatePart("ww", #12/31/2025#, vbMonday, vbFirstJan1) & " " & _
        DatePart("ww", #12/31/2025#, vbMonday, vbFirstFourDays) & " " & DatePart("ww", #12/31/2025#, vbMonday, vbFirstFullWeek)
End Sub
