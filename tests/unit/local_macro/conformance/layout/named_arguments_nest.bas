' A named argument's value may be a call with named arguments.
'> 7
Function Add(a, b)
    Add = a + b
End Function

Sub main()
    Debug.Print Add(b:=Add(a:=1, b:=2), a:=4) & ""
End Sub
