' Every On Error statement clears Err.
'> 11 0
Sub main()
    Dim s As String, zero As Long
    On Error Resume Next
    zero = 1 \ zero
    s = Err.Number
    On Error GoTo 0
    Debug.Print s & " " & Err.Number
End Sub
