' DateDiff counts New Years; full years take a look at the day as well.
'> 26 25
Sub main()
    born = #6/15/2000#: today = #3/8/2026#
    years = DateDiff("yyyy", born, today)
    Debug.Print years & " " & (years + (DateSerial(Year(today), Month(born), Day(born)) > today))
End Sub
