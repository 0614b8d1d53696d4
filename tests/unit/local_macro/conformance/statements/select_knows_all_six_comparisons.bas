' Behind Is stands any of the six comparison operators.
'> = <> < > <= >=
Sub main()
    Dim s As String
    Select Case 5: Case Is = 5: s = s & " =": End Select
    Select Case 5: Case Is <> 4: s = s & " <>": End Select
    Select Case 5: Case Is < 6: s = s & " <": End Select
    Select Case 5: Case Is > 4: s = s & " >": End Select
    Select Case 5: Case Is <= 5: s = s & " <=": End Select
    Select Case 5: Case Is >= 5: s = s & " >=": End Select
    Select Case 5: Case Is <> 5, Is < 5, Is > 5: s = s & " wrong": End Select
    Debug.Print Trim(s)
End Sub
