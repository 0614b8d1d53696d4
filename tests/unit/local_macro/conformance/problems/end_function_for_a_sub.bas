' A procedure ends with its own word.
'? 4:1 Expected: End Sub
Sub main()
End Function
