' d, m, y and q in their lengths.
'> 8 08 Sun Sunday
'> 3 03 Mar March
'> 67 26 2026
'> 1
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "d") & " " & Format(d, "dd") & " " & Format(d, "ddd") & " " & Format(d, "dddd")
    Debug.Print Format(d, "m") & " " & Format(d, "mm") & " " & Format(d, "mmm") & " " & Format(d, "mmmm")
    Debug.Print Format(d, "y") & " " & Format(d, "yy") & " " & Format(d, "yyyy")
    Debug.Print Format(d, "q")
End Sub
