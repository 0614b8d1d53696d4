' A statement that succeeds doesn't clear Err.
'> 11
Sub main()
    Dim n As Long, zero As Long
    On Error Resume Next
    n = 1 \ zero
    n = 1
    Debug.Print Err.Number & ""
End Sub
