' Empty counts as the empty text.
'> True False
Sub main()
    Debug.Print (Empty Like "*") & " " & (Empty Like "?*")
End Sub
