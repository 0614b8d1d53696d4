' Byte minus Byte stays a Byte.
'! 6 Overflow
Sub main()
    Dim a As Byte, b As Byte
    a = 1: b = 2
    Debug.Print a - b
End Sub
