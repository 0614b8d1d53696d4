' A keyword can't name a variable.
'? 4:9 Expected: identifier
Sub main()
    Dim next As Long
End Sub
