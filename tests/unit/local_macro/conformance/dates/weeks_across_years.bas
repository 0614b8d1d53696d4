' DateDiff counts weeks across the end of a year.
'> 53 1
Sub main()
    Debug.Print DateDiff("ww", #1/1/2026#, #1/3/2027#) & " " & DateDiff("ww", #12/31/2026#, #1/3/2027#)
End Sub
