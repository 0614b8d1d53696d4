' & takes Null as the empty text; two Nulls stay Null.
'> [a] [a] True
Sub main()
    Debug.Print "[" & ("a" & Null) & "] [" & (Null & "a") & "] " & IsNull(Null & Null)
End Sub
