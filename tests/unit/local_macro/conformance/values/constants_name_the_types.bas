' The constants of VarType stand for the numbers that it gives.
'> True True True True True
Sub main()
    Debug.Print (VarType(1) = vbInteger) & " " & (VarType("") = vbString) & " " & (VarType(True) = vbBoolean) & " " & _
        (VarType(Now) = vbDate) & " " & (VarType(Array()) = vbArray + vbVariant)
End Sub
