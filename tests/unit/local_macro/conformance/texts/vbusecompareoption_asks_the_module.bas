' vbUseCompareOption makes every comparing function go by the module.
'> aXc 1 0
Option Compare Text
Sub main()
    Debug.Print Replace("aBc", "b", "X", Compare:=vbUseCompareOption) & " " & _
        UBound(Split("1x2", "X", Compare:=vbUseCompareOption)) & " " & StrComp("a", "A", vbUseCompareOption)
End Sub
