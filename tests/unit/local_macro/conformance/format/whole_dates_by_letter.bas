' c is the general date, ddddd the short and dddddd the long one, ttttt the long time.
'> 3/8/2026 4:05:09 PM
'> 3/8/2026
'> Sunday, March 8, 2026
'> 4:05:09 PM
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "c")
    Debug.Print Format(d, "ddddd")
    Debug.Print Format(d, "dddddd")
    Debug.Print Format(d, "ttttt")
End Sub
