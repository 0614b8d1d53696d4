' Array takes any number of values of any types.
'> 0 2 Integer String Date
'> 0 -1
Sub main()
    a = Array(1, "two", #3/3/2003#)
    Debug.Print LBound(a) & " " & UBound(a) & " " & TypeName(a(0)) & " " & TypeName(a(1)) & " " & TypeName(a(2))
    Debug.Print LBound(Array()) & " " & UBound(Array())
End Sub
