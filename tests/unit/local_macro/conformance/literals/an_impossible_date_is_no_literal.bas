' 30 February is no date in any order of day and month.
'? 4:9 Expected: expression
Sub main()
    x = #2/30/2020#
End Sub
