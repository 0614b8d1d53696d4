' Date and Time on the left of = would set the machine's clock, which a macro may not.
'? 4:5 Setting the date is not supported by this macro language
Sub main()
    Date = #1/1/2020#
End Sub
