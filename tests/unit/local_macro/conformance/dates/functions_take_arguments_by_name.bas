' The parameters of the date functions have names.
'> 1/2/2024
'> 366
'> 2/29/2024
Sub main()
    Debug.Print DateAdd(Number:=1, Interval:="d", Date:=#1/1/2024#)
    Debug.Print "" & DateDiff("d", Date2:=#1/1/2025#, Date1:=#1/1/2024#)
    Debug.Print DateSerial(Day:=0, Month:=3, Year:=2024)
End Sub
