' An array that goes ByVal as a Variant is copied.
'> 9 1
Sub Change(ByVal v As Variant)
    v(0) = 9
    Debug.Print v(0) & " ";
End Sub

Sub main()
    Dim a(2) As Long
    a(0) = 1
    Change a
    Debug.Print a(0) & ""
End Sub
