' Dimensions count from 1 to as many as there are.
'> 3 4
'> 9 9
Sub main()
    Dim a(3, 4) As Long, n As Long
    Debug.Print UBound(a) & " " & UBound(a, 2)
    On Error Resume Next
    n = UBound(a, 3)
    Debug.Print Err.Number & " ";
    Err.Clear
    n = LBound(a, 0)
    Debug.Print Err.Number & ""
End Sub
