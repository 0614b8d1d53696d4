' Round leaves whole numbers alone and keeps Single, Double and Currency.
'> Integer Single Double Currency
Sub main()
    Debug.Print TypeName(Round(5)) & " " & TypeName(Round(1.5!, 0)) & " " & TypeName(Round(1.5)) & " " & TypeName(Round(1.55@, 1))
End Sub
