' A month with a year means its first day.
'> 3/1/2026 3/1/2026
Sub main()
    Debug.Print CDate("March 2026") & " " & CDate("3/2026")
End Sub
