'>  3  0  4  2 
'>  5  2  0 
'> bc
'> a-b-c
'> aXc
Sub main()
    Debug.Print InStr("abcd", "c"); InStr("abc", "x"); InStr(2, "abca", "a"); InStr(1, "aB", "b", vbTextCompare)
    Debug.Print InStrRev("abcab", "b"); InStrRev("abcab", "b", 4); InStrRev("abc", "x")
    Debug.Print Mid("abcd", 2, 2)
    Debug.Print Join(Split("a b c"), "-")
    Debug.Print Replace("abc", "B", "X", 1, -1, vbTextCompare)
End Sub
