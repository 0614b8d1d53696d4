' A bracket that isn't closed is error 93.
'! 93 Invalid pattern string
Sub main()
    Debug.Print "a" Like "[abc"
End Sub
