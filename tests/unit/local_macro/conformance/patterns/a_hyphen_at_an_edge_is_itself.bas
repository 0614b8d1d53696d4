' A hyphen that stands first or last in a list, or behind the !, makes no range.
'> True True False True
Sub main()
    Debug.Print ("-" Like "[-a]") & " " & ("-" Like "[a-]") & " " & ("-" Like "[!-a]") & " " & ("b" Like "[!-a]")
End Sub
