' Slashes, colons, points and blanks among the letters stand for themselves.
'> 08.03.2026 16:05:09
'> 3/8/26
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print Format(d, "dd.mm.yyyy hh:nn:ss")
    Debug.Print Format(d, "m/d/yy")
End Sub
