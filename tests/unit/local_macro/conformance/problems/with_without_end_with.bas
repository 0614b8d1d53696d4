' With needs End With.
'? 6:1 Expected: End With
Sub main()
    With x
        .y = 1
End Sub
