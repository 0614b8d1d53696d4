' LeftB, RightB and MidB take bytes, two of which make a character.
'> a c b
'> 98
Sub main()
    Debug.Print LeftB("abc", 2) & " " & RightB("abc", 2) & " " & MidB("abc", 3, 2)
    Debug.Print "" & AscB(MidB("abc", 3, 1))
End Sub
