' A call within the arguments of another one has a ParamArray of its own.
'> 6 10
Function Sum(ParamArray all() As Variant) As Long
    Dim v As Variant
    For Each v In all
        Sum = Sum + v
    Next
    all(0) = 10
End Function

Sub main()
    Dim a As Long, n As Long
    a = 1
    n = Sum(Sum(a, 2), 3)
    Debug.Print n & " " & a
End Sub
