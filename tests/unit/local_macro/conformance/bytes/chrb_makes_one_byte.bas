' ChrB gives a text of one byte; two of them joined make a character.
'> 1
'> 2 A
Sub main()
    Debug.Print "" & LenB(ChrB(65))
    Debug.Print LenB(ChrB(65) & ChrB(0)) & " " & ChrB(65) & ChrB(0)
End Sub
