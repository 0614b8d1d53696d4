' A text that is a number takes a number's format, one that isn't stays as it is.
'> 1,234.50 abc 005
Sub main()
    Debug.Print Format("1234.5", "#,##0.00") & " " & Format("abc", "0.00") & " " & Format("5", "000")
End Sub
