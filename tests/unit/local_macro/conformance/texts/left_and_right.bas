' Left and Right take characters from the ends; more than there are give the whole text.
'> [ab] [abc] [] [bc] [abc] []
Sub main()
    Debug.Print "[" & Left("abc", 2) & "] [" & Left("abc", 9) & "] [" & Left("abc", 0) & "] [" & Right("abc", 2) & _
        "] [" & Right("abc", 9) & "] [" & Right("abc", 0) & "]"
End Sub
