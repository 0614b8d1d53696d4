' With a start the result begins there: what stands in front is gone.
'> bXa
'> []
Sub main()
    Debug.Print Replace("abcabca", "cabc", "X", 2)
    Debug.Print "[" & Replace("abc", "a", "b", 9) & "]"
End Sub
