' Between values a blank is enough in place of a semicolon.
'> ab 1 c
Sub main()
    Debug.Print "a" "b" 1 "c"
End Sub
