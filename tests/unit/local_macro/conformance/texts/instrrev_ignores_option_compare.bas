' Unlike InStr, InStrRev compares by codes unless its fourth argument says otherwise.
'> 2 0 2 2
Option Compare Text
Sub main()
    Debug.Print InStr("aBc", "b") & " " & InStrRev("aBc", "b") & " " & InStrRev("aBc", "b", -1, vbTextCompare) & " " & _
        InStrRev("aBc", "b", -1, vbUseCompareOption)
End Sub
