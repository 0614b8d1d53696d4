' For Each over a Dictionary gives its keys in the order in which they came.
'> b a
Sub main()
    Dim d As Object, k As Variant, s As String
    Set d = CreateObject("Scripting.Dictionary")
    d.Add "b", 1
    d.Add "a", 2
    For Each k In d
        s = s & " " & k
    Next
    Debug.Print Trim(s)
End Sub
