' ElseIf needs Then.
'? 5:13 Expected: Then
Sub main()
    If x Then
    ElseIf y: z = 1
    End If
End Sub
