' DateAdd adds years, quarters, months, days, weeks, hours, minutes or seconds; y, d and w all mean days.
'> yyyy 1/31/2025 10:30:45 AM
'> q 4/30/2024 10:30:45 AM
'> m 2/29/2024 10:30:45 AM
'> y 2/1/2024 10:30:45 AM
'> d 2/1/2024 10:30:45 AM
'> w 2/1/2024 10:30:45 AM
'> ww 2/7/2024 10:30:45 AM
'> h 1/31/2024 11:30:45 AM
'> n 1/31/2024 10:31:45 AM
'> s 1/31/2024 10:30:46 AM
Sub main()
    For Each interval In Array("yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s")
        Debug.Print interval & " " & DateAdd(interval, 1, #1/31/2024 10:30:45 AM#)
    Next
End Sub
