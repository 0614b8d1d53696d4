' Names of constants and functions mean the same in capitals and small letters.
'> True 3
Sub main()
    Debug.Print (VBCRLF = vbCrLf) & " " & LEN("abc")
End Sub
