' LenB counts two bytes a character.
'> 6 0 4
Sub main()
    Dim l As Long
    Debug.Print LenB("abc") & " " & LenB("") & " " & LenB(l)
End Sub
