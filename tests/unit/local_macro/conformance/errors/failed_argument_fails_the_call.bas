' When an argument fails, the procedure isn't called, and the statement with the call has failed.
'> 11
Sub Show(n As Long)
    Debug.Print "called"
End Sub

Sub main()
    Dim zero As Long
    On Error Resume Next
    Show 1 \ zero
    Debug.Print Err.Number & ""
End Sub
