' DateDiff is negative when the second date is the earlier one.
'> -1 -366 -24
Sub main()
    Debug.Print DateDiff("yyyy", #1/1/2024#, #12/31/2023#) & " " & DateDiff("d", #1/1/2025#, #1/1/2024#) & " " & _
        DateDiff("h", #1/2/2024#, #1/1/2024#)
End Sub
