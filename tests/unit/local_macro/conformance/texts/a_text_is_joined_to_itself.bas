' The operands of & are read before the variable is written, also when both are the variable.
'> xyxy
'> xyxyxyxy-xyxy
Sub main()
    Dim s As String
    s = "x"
    s = s & "y"
    s = s & s
    Debug.Print s
    s = s & s & "-" & s
    Debug.Print s
End Sub
