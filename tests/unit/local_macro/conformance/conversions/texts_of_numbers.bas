' A number's text may have blanks around it, a sign, groups, an exponent, a radix, brackets or a currency sign.
'> 12 -12 1000 100 1500 255 15 -5 5
Sub main()
    Debug.Print CLng(" 12 ") & " " & CLng("-12") & " " & CLng("1,000") & " " & CLng("1e2") & " " & CLng("1.5D3") & _
        " " & CLng("&HFF") & " " & CLng("&o17") & " " & CLng("(5)") & " " & CLng("$5")
End Sub
