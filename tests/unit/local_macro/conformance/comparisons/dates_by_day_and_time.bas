' A date is earlier when its number is less.
'> True True True
Sub main()
    Debug.Print (#1/1/2020# < #1/2/2020#) & " " & (#1/1/2020 1:00:00 AM# > #1/1/2020#) & " " & (#1/1/2020# = 43831)
End Sub
