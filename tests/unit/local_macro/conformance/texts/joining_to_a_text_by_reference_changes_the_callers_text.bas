' A text that a parameter stands for grows where the caller holds it; one of fixed length keeps its length.
'> abc
'> ab c
Sub Add(t As String)
    t = t & "c"
End Sub
Sub main()
    Dim free As String, fixed As String * 3
    free = "ab"
    Add free
    Debug.Print free
    fixed = "ab"
    fixed = fixed & "c"
    Debug.Print fixed & "c"
End Sub
