' DatePart gives any part of a date as an Integer.
'> yyyy 2026
'> q 3
'> m 8
'> y 217
'> d 5
'> w 4
'> ww 32
'> h 14
'> n 7
'> s 9
Sub main()
    For Each interval In Array("yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s")
        Debug.Print interval & " " & DatePart(interval, #8/5/2026 2:07:09 PM#)
    Next
End Sub
