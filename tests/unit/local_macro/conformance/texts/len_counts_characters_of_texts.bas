' Len of a text, and of what a Variant holds, counts characters.
'> 3 0 2 5
Sub main()
    Dim v
    v = 12.34
    Debug.Print Len("abc") & " " & Len("") & " " & Len("a" & vbLf) & " " & Len(v)
End Sub
