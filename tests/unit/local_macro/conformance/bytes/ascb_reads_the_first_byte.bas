' AscB gives the first byte of a text.
'> 65 169
'! 5 Invalid procedure call or argument
Sub main()
    Debug.Print AscB("A") & " " & AscB(ChrW(937))
    x = AscB("")
End Sub
