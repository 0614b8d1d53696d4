' Empty is the empty text to the functions of texts.
'> 0 [] [] 0 True
Sub main()
    Dim v
    Debug.Print Len(v) & " [" & UCase(v) & "] [" & Left(v, 3) & "] " & InStr(v, "a") & " " & (Trim(v) = "")
End Sub
