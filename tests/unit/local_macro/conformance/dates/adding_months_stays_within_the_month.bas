' Where the month has no such day, DateAdd takes its last one.
'> 2/29/2024
'> 2/28/2023
'> 2/28/2025
'> 4/30/2024
Sub main()
    Debug.Print DateAdd("m", 1, #1/31/2024#)
    Debug.Print DateAdd("m", -1, #3/31/2023#)
    Debug.Print DateAdd("yyyy", 1, #2/29/2024#)
    Debug.Print DateAdd("q", -1, #7/31/2024#)
End Sub
