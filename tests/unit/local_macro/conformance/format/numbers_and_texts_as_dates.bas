' A date format takes a number of days and the text of a date as well.
'> 2020-01-01 12:00 March 2026
Sub main()
    Debug.Print Format(43831, "yyyy-mm-dd") & " " & Format(0.5, "hh:nn") & " " & Format("3/8/2026", "mmmm yyyy")
End Sub
