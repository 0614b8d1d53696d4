' In "Dim a, b As Long" only b is a Long; a is a Variant.
'> Empty Long
Sub main()
    Dim a, b As Long
    Debug.Print TypeName(a) & " " & TypeName(b)
End Sub
