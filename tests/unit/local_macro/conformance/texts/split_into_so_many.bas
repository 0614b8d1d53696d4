' A limit leaves the rest of the text in the last part.
'> a|b,c,d
'> a,b
Sub main()
    Debug.Print Join(Split("a,b,c,d", ",", 2), "|")
    Debug.Print Join(Split("a,b", ",", 1), "|")
End Sub
