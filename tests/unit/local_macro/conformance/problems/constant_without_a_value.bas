' A constant needs its value.
'? 4:12 Expected: =
Sub main()
    Const a
End Sub
