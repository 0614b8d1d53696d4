' ReDim of an unknown name declares a dynamic array, of Variants unless it says otherwise.
'> Variant() Long()
Sub main()
    ReDim a(2)
    ReDim b(2) As Long
    Debug.Print TypeName(a) & " " & TypeName(b)
End Sub
