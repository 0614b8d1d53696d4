' A pattern without * covers the text from end to end.
'> False False True True
Sub main()
    Debug.Print ("abc" Like "ab") & " " & ("abc" Like "bc") & " " & ("abc" Like "abc") & " " & ("" Like "")
End Sub
