' A date put together from its parts is the same date.
'> True True
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print (DateSerial(Year(d), Month(d), Day(d)) + TimeSerial(Hour(d), Minute(d), Second(d)) = d) & " " & _
        (DateValue(d) + TimeValue(d) = d)
End Sub
