' Erase takes a dynamic array its bounds; ReDim gives it new ones.
'> 9
'> 2
Sub main()
    Dim a() As Long
    ReDim a(5)
    Erase a
    On Error Resume Next
    Debug.Print UBound(a)
    Debug.Print Err.Number & ""
    ReDim a(2)
    Debug.Print UBound(a) & ""
End Sub
