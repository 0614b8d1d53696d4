' Without its third argument StrComp goes by the module.
'> 0 -1
Option Compare Text
Sub main()
    Debug.Print StrComp("ABC", "abc") & " " & StrComp("ABC", "abc", vbBinaryCompare)
End Sub
