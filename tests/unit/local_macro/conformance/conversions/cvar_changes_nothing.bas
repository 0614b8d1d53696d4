' CVar keeps the type that its argument has.
'> Integer String Date
Sub main()
    Debug.Print TypeName(CVar(1)) & " " & TypeName(CVar("1")) & " " & TypeName(CVar(#1/1/2020#))
End Sub
