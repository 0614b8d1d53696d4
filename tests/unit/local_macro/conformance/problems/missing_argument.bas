' An argument that isn't optional has to be given.
'? 6:5 Argument not optional
Sub two(a, b)
End Sub
Sub main()
    two 1
End Sub
