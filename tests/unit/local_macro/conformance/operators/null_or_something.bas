' Or with True is True whatever the other operand is; otherwise Null stays Null.
'> True True True True -1 True
Sub main()
    Debug.Print (True Or Null) & " " & (Null Or True) & " " & IsNull(False Or Null) & " " & IsNull(Null Or Null) & " " & _
        (-1 Or Null) & " " & IsNull(5 Or Null)
End Sub
