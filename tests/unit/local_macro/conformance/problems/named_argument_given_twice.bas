' A parameter gets one argument.
'? 6:5 Named argument already specified: a
Sub two(a, Optional b)
End Sub
Sub main()
    two 1, a:=2
End Sub
