' @ shows a character or a blank, & a character or nothing; texts fill them from the right.
'> [  ab] [ab] [abcde]
'> [a-b-c]
Sub main()
    Debug.Print "[" & Format("ab", "@@@@") & "] [" & Format("ab", "&&&&") & "] [" & Format("abcde", "@@") & "]"
    Debug.Print "[" & Format("abc", "@-@-@") & "]"
End Sub
