' A typed constant converts its value; an untyped one takes the value's type.
'> Integer Long String Double
Const a As Integer = 3.6
Const b = 100000
Const c As String = 5
Const d# = 1

Sub main()
    Debug.Print TypeName(a) & " " & TypeName(b) & " " & TypeName(c) & " " & TypeName(d)
End Sub
