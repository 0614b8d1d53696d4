' Between two operands ^ is the operator, with or without blanks.
'> 8 8
Sub main()
    Debug.Print 2 ^ 3 & " " & 2^3
End Sub
