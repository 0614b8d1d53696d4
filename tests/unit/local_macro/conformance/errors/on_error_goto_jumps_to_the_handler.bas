' The first error jumps to the label; Err tells number and description.
'> before
'> 11 Division by zero
Sub main()
    Dim zero As Long
    On Error GoTo Failed
    Debug.Print "before"
    Debug.Print 1 \ zero
    Debug.Print "after"
    Exit Sub
Failed:
    Debug.Print Err.Number & " " & Err.Description
End Sub
