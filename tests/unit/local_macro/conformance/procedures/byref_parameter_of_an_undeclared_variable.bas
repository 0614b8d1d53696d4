' An undeclared variable is a Variant and goes by reference to a Variant parameter.
'> 5
Sub Fill(v)
    v = 5
End Sub

Sub main()
    Fill x
    Debug.Print x & ""
End Sub
