' DateDiff counts the borders of the interval that lie between, not full intervals.
'> yyyy 1
'> q 1
'> m 1
'> d 1
'> y 1
'> h 1
'> n 1
'> s 1
Sub main()
    For Each interval In Array("yyyy", "q", "m", "d", "y", "h", "n", "s")
        Debug.Print interval & " " & DateDiff(interval, #12/31/2023 11:59:59 PM#, #1/1/2024#)
    Next
End Sub
