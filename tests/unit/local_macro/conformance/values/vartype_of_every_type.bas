' VarType gives the number of the type.
'> 0 1 2 3 4 5 6 7 8 9 10 11 17 20
Sub main()
    Debug.Print VarType(Empty) & " " & VarType(Null) & " " & VarType(1) & " " & VarType(1&) & " " & VarType(1!) & _
        " " & VarType(1#) & " " & VarType(1@) & " " & VarType(#1/1/2020#) & " " & VarType("") & " " & _
        VarType(Nothing) & " " & VarType(CVErr(1)) & " " & VarType(True) & " " & VarType(CByte(1)) & " " & _
        VarType(CLngLng(1))
End Sub
