' The time of the clock can't be set either.
'? 4:5 Setting the time is not supported by this macro language
Sub main()
    Time = #12:00:00 PM#
End Sub
