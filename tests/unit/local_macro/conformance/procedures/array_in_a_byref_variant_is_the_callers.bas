' An array that goes by reference as a Variant is the caller's array.
'> 9
Sub Change(v As Variant)
    v(0) = 9
End Sub

Sub main()
    Dim a(2) As Long
    Change a
    Debug.Print a(0) & ""
End Sub
