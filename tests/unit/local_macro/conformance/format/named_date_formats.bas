' The formats of dates that have names.
'> 3/8/2026 4:05:09 PM
'> Sunday, March 8, 2026
'> 08-Mar-26
'> 3/8/2026
'> 4:05:09 PM
'> 04:05 PM
'> 16:05
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "General Date")
    Debug.Print Format(d, "Long Date")
    Debug.Print Format(d, "Medium Date")
    Debug.Print Format(d, "Short Date")
    Debug.Print Format(d, "Long Time")
    Debug.Print Format(d, "Medium Time")
    Debug.Print Format(d, "Short Time")
End Sub
