' StrComp gives -1, 0 or 1, and Null with Null; its third argument ignores case or not.
'> -1 0 1
'> 0 1 -1
'> True
Sub main()
    Debug.Print StrComp("a", "b") & " " & StrComp("a", "a") & " " & StrComp("b", "a")
    Debug.Print StrComp("ABC", "abc", vbTextCompare) & " " & StrComp("a", "B", vbBinaryCompare) & " " & _
        StrComp("a", "B", vbTextCompare)
    Debug.Print IsNull(StrComp("a", Null))
End Sub
