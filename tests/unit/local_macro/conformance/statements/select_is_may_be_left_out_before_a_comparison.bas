' "Case > 5" and "Case Is > 5" are the same.
'> more
Sub main()
    Select Case 9
    Case < 5: Debug.Print "less"
    Case >= 9: Debug.Print "more"
    End Select
End Sub
