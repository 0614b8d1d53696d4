' A range from a greater to a lesser character is error 93.
'! 93 Invalid pattern string
Sub main()
    Debug.Print "b" Like "[c-a]"
End Sub
