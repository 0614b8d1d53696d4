' A Variant can become an array by ReDim.
'> 4 String()
Sub main()
    Dim v As Variant
    ReDim v(4) As String
    Debug.Print UBound(v) & " " & TypeName(v)
End Sub
