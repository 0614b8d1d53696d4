' DateValue drops the time of a text's date, TimeValue the day.
'> 3/8/2026
'> 4:30:00 PM
'> 3/8/2026
'! 13 Type mismatch
Sub main()
    Debug.Print DateValue("March 8, 2026 4:30 PM")
    Debug.Print TimeValue("March 8, 2026 4:30 PM")
    Debug.Print DateValue(#3/8/2026 4:30:00 PM#)
    x = DateValue("someday")
End Sub
