' Format alone gives the text that CStr gives, without the blank of Str.
'> 1234.5 -3 True abc 3/8/2026 []
Sub main()
    Debug.Print Format(1234.5) & " " & Format(-3) & " " & Format(True) & " " & Format("abc") & " " & _
        Format(#3/8/2026#) & " [" & Format(Null) & "]"
End Sub
