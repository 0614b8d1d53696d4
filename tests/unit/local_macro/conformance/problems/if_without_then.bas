' If needs Then or GoTo.
'? 4:13 Expected: Then or GoTo
Sub main()
    If x = 1
    End If
End Sub
