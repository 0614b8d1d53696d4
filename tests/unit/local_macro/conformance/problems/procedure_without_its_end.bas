' A procedure ends before the next one begins.
'? 4:1 Expected: End Sub
Sub first()
Sub main()
End Sub
