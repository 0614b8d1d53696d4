' The empty text is found at the start; a start beyond the end finds nothing, one of 0 is error 5.
'> 3 2 0 0
'! 5 Invalid procedure call or argument
Sub main()
    Debug.Print InStrRev("abc", "") & " " & InStrRev("abc", "", 2) & " " & InStrRev("abc", "a", 4) & " " & InStrRev("", "a")
    x = InStrRev("abc", "a", 0)
End Sub
