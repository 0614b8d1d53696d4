' A text made of bytes is a copy; the array goes on for itself.
'> ABC aBC
Sub main()
    Dim bytes() As Byte, before As String, after As String
    bytes = "ABC"
    before = bytes
    bytes(0) = Asc("a")
    after = bytes
    Debug.Print before & " " & after
End Sub
