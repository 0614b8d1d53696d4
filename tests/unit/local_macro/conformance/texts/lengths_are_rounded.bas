' A position with a fraction is rounded half to even.
'> ab abcd b
Sub main()
    Debug.Print Left("abcde", 2.5) & " " & Left("abcde", 3.5) & " " & Mid("abcde", 1.5, 1)
End Sub
