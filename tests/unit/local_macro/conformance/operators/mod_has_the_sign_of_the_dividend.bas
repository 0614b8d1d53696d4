' The remainder takes its sign from the left operand.
'> 1 -1 1 -1 0
Sub main()
    Debug.Print 7 Mod 3 & " " & -7 Mod 3 & " " & 7 Mod -3 & " " & -7 Mod -3 & " " & 6 Mod 3
End Sub
