' A text may hold null characters and line ends; they count as one character each.
'> 4 0
Sub main()
    s = "a" & vbNullChar & vbCr & "b"
    Debug.Print Len(s) & " " & AscW(Mid(s, 2, 1))
End Sub
