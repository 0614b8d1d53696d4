' The sum of two types is of the type that holds both.
'> Byte Integer Long LongLong
'> Single Double Double Double
'> Currency Date Date Integer
Sub main()
    Debug.Print TypeName(CByte(1) + CByte(1)) & " " & TypeName(CByte(1) + 1) & " " & TypeName(1 + 1&) & " " & _
        TypeName(1& + CLngLng(1))
    Debug.Print TypeName(1 + 1!) & " " & TypeName(1& + 1!) & " " & TypeName(1! + 1#) & " " & TypeName("1" + 1)
    Debug.Print TypeName(1@ + 1#) & " " & TypeName(#1/1/2020# + 1) & " " & TypeName(1 + #1/1/2020#) & " " & _
        TypeName(True + True)
End Sub
