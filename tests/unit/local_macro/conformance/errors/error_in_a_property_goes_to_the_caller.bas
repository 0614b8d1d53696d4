' A property procedure fails like any other procedure.
'> 11
Property Get Level() As Long
    Dim zero As Long
    Level = 1 \ zero
End Property

Sub main()
    Dim n As Long
    On Error Resume Next
    n = Level
    Debug.Print Err.Number & ""
End Sub
