'> ABC
'> abc
'>   ab
'> ab
Sub main()
    Debug.Print Format("abc", ">")
    Debug.Print Format("ABC", "<")
    Debug.Print Format("ab", "@@@@")
    Debug.Print Format("ab", "&&&&")
End Sub
