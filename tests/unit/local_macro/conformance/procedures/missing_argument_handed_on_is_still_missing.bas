' A missing Variant that is handed on to an optional Variant is missing there as well.
'> True
Function Inner(Optional v As Variant) As Boolean
    Inner = IsMissing(v)
End Function

Function Outer(Optional v As Variant) As Boolean
    Outer = Inner(v)
End Function

Sub main()
    Debug.Print Outer()
End Sub
