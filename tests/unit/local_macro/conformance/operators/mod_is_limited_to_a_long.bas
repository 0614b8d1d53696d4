' Floating operands of \ and Mod become Longs; larger ones are an overflow.
'! 6 Overflow
Sub main()
    Debug.Print 5000000000# Mod 3
End Sub
