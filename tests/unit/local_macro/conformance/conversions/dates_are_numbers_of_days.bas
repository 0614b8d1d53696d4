' A date converts to the number of its day and back.
'> 43831.5 43832 1/1/2020 12:00:00 PM
Sub main()
    d = #1/1/2020 12:00:00 PM#
    Debug.Print CDbl(d) & " " & CLng(d) & " " & CDate(43831.5)
End Sub
