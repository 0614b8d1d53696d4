' Raising the same error again within a handler hands it to the caller.
'> inner
'> outer 11 Division by zero
Sub Inner()
    Dim zero As Long
    On Error GoTo Failed
    zero = 1 \ zero
    Exit Sub
Failed:
    Debug.Print "inner"
    Err.Raise Err.Number, Err.Source, Err.Description
End Sub

Sub main()
    On Error Resume Next
    Inner
    Debug.Print "outer " & Err.Number & " " & Err.Description
End Sub
