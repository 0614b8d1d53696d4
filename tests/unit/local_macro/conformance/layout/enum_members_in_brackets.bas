' A member of an Enum may be bracketed to hold signs that names don't begin with.
'> 1 3
Enum Range1
    [_First] = 1
    middle
    [_Last]
End Enum

Sub main()
    Debug.Print Range1.[_First] & " " & [_Last]
End Sub
