' IsMissing is True for an optional Variant without default that got no argument, and False for all else.
'> True False False
Function Told(Optional v As Variant, Optional withDefault As Variant = 3, Optional typed As Long) As String
    Told = IsMissing(v) & " " & IsMissing(withDefault) & " " & IsMissing(typed)
End Function

Sub main()
    Debug.Print Told()
End Sub
