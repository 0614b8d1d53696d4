' A function may give a second result through an optional reference parameter.
'> True 8
'> True
Function Twice(ByVal n As Long, Optional ByRef result As Variant) As Boolean
    If Not IsMissing(result) Then result = n * 2
    Twice = True
End Function

Sub main()
    Dim r
    Debug.Print Twice(4, r) & " " & r
    Debug.Print Twice(4)
End Sub
