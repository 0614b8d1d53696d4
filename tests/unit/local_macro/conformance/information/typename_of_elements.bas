' The type of an array's element is the array's, whether it was written to or not.
'> Long Byte 8
Sub main()
    Dim numbers(1) As Long, bytes(1) As Byte, names(1) As String
    Debug.Print TypeName(numbers(0)) & " " & TypeName(bytes(1)) & " " & VarType(names(0))
End Sub
