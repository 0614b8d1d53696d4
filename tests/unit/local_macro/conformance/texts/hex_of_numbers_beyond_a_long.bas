' A number that no Long holds is an overflow unless it is a LongLong.
'> 100000000
'! 6 Overflow
Sub main()
    Debug.Print Hex(4294967296^)
    x = Hex(4294967296#)
End Sub
