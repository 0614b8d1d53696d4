' A fraction is rounded half to even before its bits count; beyond a Long it is an overflow.
'> 2 4
'! 6 Overflow
Sub main()
    Debug.Print (2.5 And 7) & " " & (3.5 And 7)
    x = 3000000000# And 1
End Sub
