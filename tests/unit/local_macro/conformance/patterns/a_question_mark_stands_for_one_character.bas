' ? matches exactly one character.
'> True False False True
Sub main()
    Debug.Print ("abc" Like "a?c") & " " & ("ac" Like "a?c") & " " & ("abbc" Like "a?c") & " " & (ChrW(233) Like "?")
End Sub
