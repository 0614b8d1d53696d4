' A Long holds -2147483648 to 2147483647.
'> 2147483647 -2147483648
'! 6 Overflow
Sub main()
    Dim a As Long, b As Long
    a = 2147483647
    b = -2147483648#
    Debug.Print a & " " & b
    a = 2147483648#
End Sub
