' A negative number goes back, over days, months and years.
'> 12/31/2023 11:59:59 PM
'> 12/25/2023
'> 12/1/2023
Sub main()
    Debug.Print DateAdd("s", -1, #1/1/2024#)
    Debug.Print DateAdd("ww", -1, #1/1/2024#)
    Debug.Print DateAdd("m", -25, #1/1/2026#)
End Sub
