' The functions of dates answer Null with Null; DateValue takes none.
'> True True True True True True
'! 94 Invalid use of Null
Sub main()
    Debug.Print IsNull(Year(Null)) & " " & IsNull(Hour(Null)) & " " & IsNull(Weekday(Null)) & " " & _
        IsNull(DatePart("d", Null)) & " " & IsNull(DateDiff("d", Null, Now)) & " " & IsNull(DateAdd("d", 1, Null))
    x = DateValue(Null)
End Sub
