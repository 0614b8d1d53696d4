' ! fills the places of a text from the left.
'> [ab  ]
Sub main()
    Debug.Print "[" & Format("ab", "!@@@@") & "]"
End Sub
