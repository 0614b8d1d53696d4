' A name in brackets is the same name, and may be a keyword.
'> 3 4
Sub main()
    Dim [next] As Long, plain As Long
    [next] = 3
    [plain] = 4
    Debug.Print [next] & " " & plain
End Sub
