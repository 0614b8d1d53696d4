' InStrRev gives the last find that ends at or before the start, counted from the front.
'> 5 2 0 4 1
Sub main()
    Debug.Print InStrRev("abcab", "b") & " " & InStrRev("abcab", "b", 4) & " " & InStrRev("abc", "x") & " " & _
        InStrRev("abcab", "ab", 5) & " " & InStrRev("abcab", "ab", 4)
End Sub
