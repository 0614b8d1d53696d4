' Space repeats a blank, String a character given as text or as its code.
'> [   ] []
'> xxx AAA xx
Sub main()
    Debug.Print "[" & Space(3) & "] [" & Space(0) & "]"
    Debug.Print String(3, "x") & " " & String(3, 65) & " " & String(2, "xyz")
End Sub
