' Exit For leaves the innermost For, also from within a Do loop inside it.
'> 1a 2a
'> 3
Sub main()
    Dim i As Long, s As String, c As Variant
    For i = 1 To 2
        For Each c In Array("a", "b")
            Do
                s = s & " " & i & c
                Exit For
            Loop
        Next
    Next
    Debug.Print Trim(s)
    Debug.Print i & ""
End Sub
