' [! ] matches one character that isn't listed, and never none.
'> True False False True
Sub main()
    Debug.Print ("d" Like "[!a-c]") & " " & ("b" Like "[!a-c]") & " " & ("" Like "[!a]") & " " & ("!" Like "[a!]")
End Sub
