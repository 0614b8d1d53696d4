' Split gives an array of String.
'> b String()
Sub main()
    Dim s() As String
    s = Split("a b c")
    Debug.Print s(1) & " " & TypeName(Split("x"))
End Sub
