' There is no 2147483648 among the Longs.
'> 0
'! 6 Overflow
Sub main()
    Dim least As Long
    least = -2147483647 - 1
    Debug.Print least Mod -1 & ""
    Debug.Print least \ -1
End Sub
