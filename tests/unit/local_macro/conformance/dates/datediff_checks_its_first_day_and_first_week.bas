' DateDiff counts weeks by the first day that it is given; the first week of the year changes nothing; days are 0 to 7 and weeks 0 to 3.
'> 1 0 1
'> 1 1
'> 5 5 5
Sub main()
    Dim d1 As Date, d2 As Date, s As String, n As Long
    d1 = DateSerial(2026, 11, 21)
    d2 = DateSerial(2026, 11, 22)
    Debug.Print DateDiff("ww", d1, d2) & " " & DateDiff("ww", d1, d2, vbMonday) & " " & DateDiff("ww", d1, d2, vbUseSystemDayOfWeek)
    Debug.Print DateDiff("ww", d1, d2, vbSunday, vbFirstFullWeek) & " " & DateDiff("d", d1, d2, vbFriday, vbFirstFourDays)
    On Error Resume Next
    n = DateDiff("ww", d1, d2, 8): s = Err.Number & " ": Err.Clear
    n = DateDiff("d", d1, d2, -1): s = s & Err.Number & " ": Err.Clear
    n = DateDiff("d", d1, d2, 1, 4): Debug.Print s & Err.Number
End Sub
