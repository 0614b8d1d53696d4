' Another On Error inside an active handler doesn't guard before Resume.
'! 9 Subscript out of range
Sub main()
    Dim zero As Long, a(1) As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Exit Sub
Failed:
    On Error Resume Next
    zero = a(7)
    Debug.Print "not reached"
End Sub
