' Bounds may lie anywhere in the range of a Long.
'> a b
Sub main()
    Dim a(-2147483647 To -2147483646) As String, b(2147483646 To 2147483647) As String
    a(-2147483646) = "a"
    b(2147483647) = "b"
    Debug.Print a(-2147483646) & " " & b(2147483647)
End Sub
