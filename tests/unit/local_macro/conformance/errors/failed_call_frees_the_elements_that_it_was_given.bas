' A call that failed holds none of the elements that it was given, so their array may change its size.
'> 11
'> 5
Sub Failing(ParamArray all() As Variant)
    Dim zero As Long
    all(0) = 1 \ zero
End Sub

Sub main()
    Dim a() As Long
    ReDim a(2)
    On Error Resume Next
    Failing a(1), a(2)
    Debug.Print Err.Number & ""
    On Error GoTo 0
    ReDim a(5)
    Debug.Print UBound(a) & ""
End Sub
