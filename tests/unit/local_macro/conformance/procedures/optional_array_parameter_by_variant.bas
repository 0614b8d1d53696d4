' An optional Variant takes an array, whose elements are the caller's.
'> 9
Sub Change(Optional v As Variant)
    If IsArray(v) Then v(1) = 9
End Sub

Sub main()
    Dim a(2) As Long
    Change a
    Debug.Print a(1) & ""
End Sub
