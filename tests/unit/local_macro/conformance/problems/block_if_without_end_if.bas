' A block If needs End If before the procedure ends.
'? 6:1 Expected: End If
Sub main()
    If x Then
        y = 1
End Sub
