' A text function reads a number's or a date's text.
'> 12 3 5/20 True
Sub main()
    Debug.Print Left(123, 2) & " " & Right(123, 1) & " " & Mid(#3/5/2026#, 3, 4) & " " & (UCase(True) = "TRUE")
End Sub
