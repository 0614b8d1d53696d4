' InStrB gives the place of a byte; the second character starts at the third.
'> 3 0 5
Sub main()
    Debug.Print InStrB("abc", "b") & " " & InStrB("abc", "x") & " " & InStrB(4, "abc", "c")
End Sub
