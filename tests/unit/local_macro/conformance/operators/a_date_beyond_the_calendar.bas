' A sum of date and number that leaves the calendar is an overflow where both are declared.
'! 6 Overflow
Sub main()
    Dim d As Date
    d = #12/31/9999#
    d = d + 1
End Sub
