' With Null as an operand the result is Null.
'> True True True True True True True
Sub main()
    Debug.Print IsNull(1 + Null) & " " & IsNull(Null - 1) & " " & IsNull(2 * Null) & " " & IsNull(Null / 0) & " " & _
        IsNull(Null Mod 2) & " " & IsNull(2 ^ Null) & " " & IsNull(-Null)
End Sub
