'> [  a][a  ][a]
'> cba
'> xxx   
'> 65 A 937 
'> Hello World
'> FF 377 FFFF
'>  5-5 
'>  12.5  255  0 
Sub main()
    Debug.Print "[" & RTrim("  a ") & "][" & LTrim(" a  ") & "][" & Trim(" a ") & "]"
    Debug.Print StrReverse("abc")
    Debug.Print String(3, "x") & Space(3)
    Debug.Print Asc("A") & " " & Chr(65) & " " & AscW(ChrW(937)) & " "
    Debug.Print StrConv("hello world", vbProperCase)
    Debug.Print Hex(255) & " " & Oct(255) & " " & Hex(-1)
    Debug.Print Str(5) & Str(-5) & " "
    Debug.Print Val("12.5abc"); Val("&HFF"); Val("abc")
End Sub
