' InStr goes by the module's Option Compare unless its fourth argument says how to compare.
'> 0 2 0
'> 2
Sub main()
    Debug.Print InStr("aBc", "b") & " " & InStr(1, "aBc", "b", vbTextCompare) & " " & InStr(1, "aBc", "b", vbBinaryCompare)
    Debug.Print "" & InStr(Start:=1, String1:="aBc", String2:="B")
End Sub
