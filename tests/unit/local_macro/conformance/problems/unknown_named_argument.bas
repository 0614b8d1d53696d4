' A named argument names a parameter.
'? 6:5 Named argument not found: c
Sub one(a)
End Sub
Sub main()
    one c:=1
End Sub
