'> 2026-03-03 09:05:07
'> Tuesday, March 3, 2026
'> 3 Mar 26
'> 09:05 AM
'> 3/3/2026 9:05:07 AM
'> Q1
Sub main()
    d = #3/3/2026 9:05:07 AM#
    Debug.Print Format(d, "yyyy-mm-dd hh:nn:ss")
    Debug.Print Format(d, "dddd, mmmm d, yyyy")
    Debug.Print Format(d, "d mmm yy")
    Debug.Print Format(d, "Medium Time")
    Debug.Print d
    Debug.Print Format(d, """Q""q")
End Sub
