' From ^ over the sign, * and /, \, Mod, + and -, & to comparison, Not, And, Or, Xor, Eqv and Imp.
'> -4
'> 18
'> 1
'> 2
'> 9
'> 12
'> True
'> False
'> True
'> -2
'> True
Sub main()
    Debug.Print "" & -2 ^ 2
    Debug.Print "" & 2 * 3 ^ 2
    Debug.Print "" & 9 \ 3 * 2
    Debug.Print "" & 8 Mod 9 \ 3
    Debug.Print "" & 7 + 5 Mod 3
    Debug.Print 10 \ 10 & 1 + 1
    Debug.Print "ab" = "a" & "b"
    Debug.Print Not 1 = 1
    Debug.Print True Or False And False
    Debug.Print "" & (1 Xor 1 Or 1 Eqv 1)
    Debug.Print False Imp False Eqv True
End Sub
