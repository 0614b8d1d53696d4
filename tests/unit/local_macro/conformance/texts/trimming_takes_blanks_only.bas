' LTrim, RTrim and Trim take blanks away, no tabs and no line ends, and none within the text.
'> [a b  ] [  a b] [a b]
'> 3
Sub main()
    Debug.Print "[" & LTrim("  a b  ") & "] [" & RTrim("  a b") & "] [" & Trim("  a b  ") & "]"
    Debug.Print "" & Len(Trim(vbTab & "a" & vbLf))
End Sub
