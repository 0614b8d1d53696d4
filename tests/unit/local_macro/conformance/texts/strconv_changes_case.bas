' StrConv makes capitals, small letters, or words that start with a capital.
'> ABC DEF
'> abc def
'> Abc Def-ghi
'> O'neill
Sub main()
    Debug.Print StrConv("abc Def", vbUpperCase)
    Debug.Print StrConv("ABC Def", vbLowerCase)
    Debug.Print StrConv("abc DEF-GHI", vbProperCase)
    Debug.Print StrConv("O'NEILL", vbProperCase)
End Sub
