' Conditions are continued like any other line.
'> both
Sub main()
    Dim a As Long, b As Long
    a = 1
    b = 2
    If a = 1 _
        And b = 2 _
    Then
        Debug.Print "both"
    End If
End Sub
