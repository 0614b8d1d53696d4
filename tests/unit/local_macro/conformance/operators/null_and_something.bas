' And with False is False whatever the other operand is; otherwise Null stays Null.
'> False False True True 0
Sub main()
    Debug.Print (False And Null) & " " & (Null And False) & " " & IsNull(True And Null) & " " & IsNull(Null And Null) & _
        " " & (0 And Null)
End Sub
