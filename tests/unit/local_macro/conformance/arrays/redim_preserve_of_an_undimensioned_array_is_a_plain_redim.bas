' With nothing to keep, ReDim Preserve dimensions the array.
'> 3
Sub main()
    Dim a() As Long
    ReDim Preserve a(3)
    Debug.Print UBound(a) & ""
End Sub
