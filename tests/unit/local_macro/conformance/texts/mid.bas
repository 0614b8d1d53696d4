' Mid counts from 1; without a length it goes to the end, beyond the end there is nothing.
'> [bc] [bcd] [d] [] [] [bcd]
Sub main()
    Debug.Print "[" & Mid("abcd", 2, 2) & "] [" & Mid("abcd", 2) & "] [" & Mid("abcd", 4, 9) & "] [" & Mid("abcd", 5) & _
        "] [" & Mid("abcd", 2, 0) & "] [" & Mid("abcd", 2, 3) & "]"
End Sub
