' Xor, Eqv and Not of Null are Null.
'> True True True
Sub main()
    Debug.Print IsNull(True Xor Null) & " " & IsNull(Null Eqv Null) & " " & IsNull(Not Null)
End Sub
