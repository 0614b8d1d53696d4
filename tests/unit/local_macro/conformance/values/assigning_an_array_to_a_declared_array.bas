' A declared dynamic array takes an array of its own type, and not one of another.
'> 3
'! 13 Type mismatch
Sub main()
    Dim names() As String, numbers() As Long
    names = Split("a b c")
    Debug.Print "" & (UBound(names) + 1)
    numbers = Split("1 2 3")
End Sub
