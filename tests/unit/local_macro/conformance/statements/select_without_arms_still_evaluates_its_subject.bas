' A Select Case without any Case still evaluates its subject.
'! 11 Division by zero
Sub main()
    Dim zero As Long
    Select Case 1 \ zero
    End Select
End Sub
