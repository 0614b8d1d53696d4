' Without Option Explicit an undeclared name is a Variant, local to the procedure that uses it.
'> inner Empty
'> outer 5
Sub Inner()
    Debug.Print "inner " & TypeName(x)
    x = 7
End Sub

Sub main()
    x = 5
    Inner
    Debug.Print "outer " & x
End Sub
