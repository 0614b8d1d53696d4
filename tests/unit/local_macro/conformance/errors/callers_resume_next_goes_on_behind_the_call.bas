' For the caller the call is the failed statement: Resume Next goes on behind it.
'> behind the call 11
Sub Failing()
    Dim zero As Long
    zero = 1 \ zero
    Debug.Print "not here"
End Sub

Sub main()
    On Error Resume Next
    Failing
    Debug.Print "behind the call " & Err.Number
End Sub
