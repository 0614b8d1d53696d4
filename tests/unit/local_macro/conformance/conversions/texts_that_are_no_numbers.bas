' Anything else in a text is a type mismatch, also nothing at all.
'> 13 13 13 13 13 13
Sub main()
    On Error Resume Next
    For Each text In Array("", " ", "abc", "1 2", "12a", "1.2.3")
        x = CLng(text)
        e = e & " " & Err.Number
        Err.Clear
    Next
    Debug.Print Mid(e, 2)
End Sub
