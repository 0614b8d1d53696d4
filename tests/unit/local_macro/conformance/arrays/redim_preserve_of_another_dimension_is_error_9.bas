' Changing any other bound or the number of dimensions with Preserve is error 9.
'> 9 first dimension
'> 9 lower bound
'> 9 number of dimensions
Sub main()
    Dim a() As Long
    ReDim a(2, 2)
    On Error Resume Next
    ReDim Preserve a(3, 2)
    Debug.Print Err.Number & " first dimension"
    Err.Clear
    ReDim Preserve a(2, 1 To 2)
    Debug.Print Err.Number & " lower bound"
    Err.Clear
    ReDim Preserve a(2)
    Debug.Print Err.Number & " number of dimensions"
End Sub
