' TypeName tells the type of a value, not of the variable.
'> Byte Integer Long LongLong Single Double Currency
'> Date String Boolean Empty Null Error Nothing
Sub main()
    Debug.Print TypeName(CByte(1)) & " " & TypeName(1) & " " & TypeName(1&) & " " & TypeName(CLngLng(1)) & " " & _
        TypeName(1!) & " " & TypeName(1#) & " " & TypeName(1@)
    Debug.Print TypeName(#1/1/2020#) & " " & TypeName("") & " " & TypeName(True) & " " & TypeName(Empty) & " " & _
        TypeName(Null) & " " & TypeName(CVErr(1)) & " " & TypeName(Nothing)
End Sub
