' InStr gives the place of the first find at or behind the start, or 0.
'> 3 0 4 1 4
Sub main()
    Debug.Print InStr("abcabc", "c") & " " & InStr("abc", "x") & " " & InStr(2, "abcabc", "a") & " " & _
        InStr(1, "abc", "a") & " " & InStr(4, "aaaaa", "a")
End Sub
