' h, n and s in their lengths; the hour goes to 24 unless there is a sign for the half of the day.
'> 16 16 5 05 9 09
'> 4 04
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "h") & " " & Format(d, "hh") & " " & Format(d, "n") & " " & Format(d, "nn") & " " & _
        Format(d, "s") & " " & Format(d, "ss")
    Debug.Print Left(Format(d, "h AM/PM"), 1) & " " & Left(Format(d, "hh AM/PM"), 2)
End Sub
