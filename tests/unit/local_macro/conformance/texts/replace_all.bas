' Replace changes every find from left to right, without looking at what it has put in.
'> a-b-c
'> bb
'> ac
'> aba
Sub main()
    Debug.Print Replace("a b c", " ", "-")
    Debug.Print Replace("aaaa", "aa", "b")
    Debug.Print Replace("abc", "b", "")
    Debug.Print Replace("a", "a", "aba")
End Sub
