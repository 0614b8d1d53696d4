' Err is found behind the language's name too.
'> 11 Division by zero
Sub main()
    On Error Resume Next
    x = 1 / 0
    Debug.Print VBA.Err.Number & " " & VBA.Err.Description
End Sub
