' For an array VarType adds 8192 to its elements' type and TypeName ends with parentheses.
'> Long() 8195
'> String() 8200
'> Variant() 8204
'> Byte() 8209
Sub main()
    Dim numbers(2) As Long, names() As String, bytes() As Byte
    Debug.Print TypeName(numbers) & " " & VarType(numbers)
    Debug.Print TypeName(names) & " " & VarType(names)
    Debug.Print TypeName(Array(1, "a")) & " " & VarType(Array(1, "a"))
    Debug.Print TypeName(bytes) & " " & VarType(bytes)
End Sub
