' An If has one Else, and no ElseIf behind it.
'? 6:5 Expected: End If
Sub main()
    If x Then
    Else
    ElseIf y Then
    End If
End Sub
