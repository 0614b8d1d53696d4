' A count limits the replacements; 0 makes none.
'> bba
'> aaa
Sub main()
    Debug.Print Replace("aaa", "a", "b", 1, 2)
    Debug.Print Replace("aaa", "a", "b", 1, 0)
End Sub
