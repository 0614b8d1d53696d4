' MonthName gives the full or the short name of a month.
'> January May Dec Sep
'> 5 5
Sub main()
    Debug.Print MonthName(1) & " " & MonthName(5) & " " & MonthName(12, True) & " " & MonthName(9, True)
    On Error Resume Next
    x = MonthName(0): e = Err.Number: Err.Clear
    x = MonthName(13): e = e & " " & Err.Number
    Debug.Print e
End Sub
