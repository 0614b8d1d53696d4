' Resume in the caller's handler calls the procedure again from its beginning.
'> begin
'> begin
'> worked
Dim fixed1 As Boolean

Sub Try()
    Dim zero As Long
    Debug.Print "begin"
    If Not fixed1 Then zero = 1 \ zero
    Debug.Print "worked"
End Sub

Sub main()
    On Error GoTo Failed
    Try
    Exit Sub
Failed:
    fixed1 = True
    Resume
End Sub
