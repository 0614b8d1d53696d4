' Behind "Case Is" stands a comparison.
'? 5:13 Expected: comparison operator
Sub main()
    Select Case x
    Case Is 5
    End Select
End Sub
