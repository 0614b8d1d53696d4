' * matches any number of characters, none included.
'> True True True False True
Sub main()
    Debug.Print ("abc" Like "a*") & " " & ("abc" Like "*") & " " & ("" Like "*") & " " & ("abc" Like "*b") & " " & _
        ("aXbXc" Like "a*b*c")
End Sub
