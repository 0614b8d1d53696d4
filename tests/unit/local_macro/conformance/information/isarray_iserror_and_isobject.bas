' Each tells one kind of value from all others; Nothing counts as an object.
'> True True False
'> True False
'> True True False
Sub main()
    Dim numbers(3) As Long, o As Object
    Debug.Print IsArray(numbers) & " " & IsArray(Array()) & " " & IsArray("abc")
    Debug.Print IsError(CVErr(5)) & " " & IsError(5)
    Debug.Print IsObject(New Collection) & " " & IsObject(o) & " " & IsObject(5)
End Sub
