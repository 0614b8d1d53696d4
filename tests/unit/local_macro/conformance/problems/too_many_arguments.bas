' No more arguments than parameters.
'? 6:5 Wrong number of arguments or invalid property assignment
Sub one(a)
End Sub
Sub main()
    one 1, 2
End Sub
