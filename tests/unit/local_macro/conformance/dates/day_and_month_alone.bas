' A day without a year lies in the year of the clock.
'> 5/4/2026 5/4/2026 True
Sub main()
    Debug.Print CDate("May 4") & " " & CDate("5/4") & " " & IsDate("4 May")
End Sub
