' The first week holds 1 January, or four days of the year, or seven.
'> 1 53 52
'> 2 1 1
Sub main()
    Debug.Print DatePart("ww", #1/1/2027#, vbMonday, vbFirstJan1) & " " & _
        DatePart("ww", #1/1/2027#, vbMonday, vbFirstFourDays) & " " & DatePart("ww", #1/1/2027#, vbMonday, vbFirstFullWeek)
    Debug.Print DatePart("ww", #1/4/2027#, vbMonday, vbFirstJan1) & " " & _
        DatePart("ww", #1/4/2027#, vbMonday, vbFirstFourDays) & " " & DatePart("ww", #1/4/2027#, vbMonday, vbFirstFullWeek)
End Sub
