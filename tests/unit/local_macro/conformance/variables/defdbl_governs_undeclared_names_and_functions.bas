' Names that are used without declaration, parameters and functions follow the Def statement as well.
'> Double Double Double
DefDbl A-Z

Function Half(n)
    Half = n / 2
End Function

Sub main()
    x = 3
    Dim v As Variant
    v = Half(CDbl(1))
    Debug.Print TypeName(x) & " " & TypeName(Half(5#)) & " " & TypeName(v)
End Sub
