' The constants for line ends and other control characters.
'> 13 10 2 9 8 12 11 0 0
Sub main()
    Debug.Print Asc(vbCr) & " " & Asc(vbLf) & " " & Len(vbCrLf) & " " & Asc(vbTab) & " " & Asc(vbBack) & " " & _
        Asc(vbFormFeed) & " " & Asc(vbVerticalTab) & " " & Asc(vbNullChar) & " " & Len(vbNullString)
End Sub
