' A ParamArray holds the arguments behind the others, from 0; without any its upper bound is -1.
'> a: 3, 0 to 2, 1 2 3
'> b: 0, 0 to -1,
Sub Show(name As String, ParamArray rest() As Variant)
    Dim v As Variant, s As String
    For Each v In rest
        s = s & " " & v
    Next
    Debug.Print name & ": " & (UBound(rest) + 1) & ", " & LBound(rest) & " to " & UBound(rest) & "," & s
End Sub

Sub main()
    Show "a", 1, 2, 3
    Show "b"
End Sub
