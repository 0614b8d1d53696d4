' With three arguments the first is the start, so a text there is a type mismatch.
'! 13 Type mismatch
Sub main()
    Debug.Print InStr("abc", "B", vbTextCompare)
End Sub
