' Behind a named argument all have names.
'? 6:5 Expected: named parameter
Sub two(a, b)
End Sub
Sub main()
    two a:=1, 2
End Sub
