' On Error counts for its procedure only and ends with it.
'! 11 Division by zero
Sub Guarded()
    On Error Resume Next
End Sub

Sub main()
    Dim zero As Long
    Guarded
    zero = 1 \ zero
End Sub
