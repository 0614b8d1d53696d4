' Before \ and Mod divide, both operands become whole numbers, a half to even.
'> 4 3 2
'> 2 0
'! 11 Division by zero
Sub main()
    Debug.Print 7.5 \ 2 & " " & 6.5 \ 2 & " " & 5 \ 2.4
    Debug.Print 7.6 Mod 3 & " " & 8.5 Mod 2
    x = 5 \ 0.5
End Sub
