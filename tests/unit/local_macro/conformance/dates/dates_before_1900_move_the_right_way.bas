' Adding time to a date before day 0 makes it later, although its number's fraction counts on.
'> 12/29/1899 7:00:00 AM
'> 12/30/1899 => 0
'> 12/28/1899 11:00:00 PM
Sub main()
    Debug.Print DateAdd("h", 1, #12/29/1899 6:00:00 AM#)
    Debug.Print "12/30/1899 => " & CDbl(DateAdd("h", 18, #12/29/1899 6:00:00 AM#))
    Debug.Print DateAdd("h", -7, #12/29/1899 6:00:00 AM#)
End Sub
