' Day 0 of the next month is the last of this one, in each month of a year.
'> 31 28 31 30 31 30 31 31 30 31 30 31
Sub main()
    For i = 1 To 12
        list = list & " " & Day(DateSerial(2026, i + 1, 0))
    Next
    Debug.Print Mid(list, 2)
End Sub
