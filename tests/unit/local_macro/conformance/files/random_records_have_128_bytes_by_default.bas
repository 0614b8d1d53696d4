' Without Len a record has 128 bytes, and Random is the mode of an Open without For.
'> 256
Sub main()
    Dim n As Integer
    Open "C:\r" As #1
    Put #1, 2, n
    Debug.Print LOF(1) & ""
End Sub
