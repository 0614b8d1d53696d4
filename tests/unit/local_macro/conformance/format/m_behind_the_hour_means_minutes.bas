' Right behind h an m is the minute, anywhere else the month.
'> 16:05
'> 03/08 16:05:09
'> 16 03
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "hh:mm")
    Debug.Print Format(d, "mm/dd hh:mm:ss")
    Debug.Print Format(d, "hh") & " " & Format(d, "mm")
End Sub
