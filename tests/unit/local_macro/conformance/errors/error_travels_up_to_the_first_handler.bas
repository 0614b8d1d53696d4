' An error without handler ends procedures one by one up to one that has a handler.
'> 11
Sub Third()
    Dim zero As Long
    zero = 1 \ zero
    Debug.Print "not in third"
End Sub

Sub Second()
    Third
    Debug.Print "not in second"
End Sub

Sub main()
    On Error GoTo Failed
    Second
    Debug.Print "not in main"
    Exit Sub
Failed:
    Debug.Print Err.Number & ""
End Sub
