' The empty text is found at the start; in an empty text, or from behind the end, nothing is.
'> 1 2 0 0 0
Sub main()
    Debug.Print InStr("abc", "") & " " & InStr(2, "abc", "") & " " & InStr("", "a") & " " & InStr("", "") & " " & _
        InStr(4, "abc", "")
End Sub
