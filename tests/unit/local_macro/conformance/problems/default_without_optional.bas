' Only an optional parameter has a default.
'? 3:13 Expected: Optional
Sub one(a = 5)
End Sub
Sub main()
End Sub
