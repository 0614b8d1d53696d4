' Chr gives the character of a code of the Windows code page, Asc the code.
'> A 65 97
'> 8364 128
Sub main()
    Debug.Print Chr(65) & " " & Asc("A") & " " & Asc("abc")
    Debug.Print AscW(Chr(128)) & " " & Asc(ChrW(8364))
End Sub
