' A text goes on behind a null character.
'> 5 4 c
Sub main()
    s = "ab" & vbNullChar & "cd"
    Debug.Print Len(s) & " " & InStr(s, "c") & " " & Mid(s, 4, 1)
End Sub
