' Behind an optional parameter all are optional.
'? 3:22 Expected: Optional
Sub two(Optional a, b)
End Sub
Sub main()
End Sub
