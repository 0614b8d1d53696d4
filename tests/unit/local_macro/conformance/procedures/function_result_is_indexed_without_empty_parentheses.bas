' A function without parameters that returns an array may be indexed at once.
'> b b
Function Names() As Variant
    Names = Array("a", "b")
End Function

Sub main()
    Debug.Print Names(1) & " " & Names()(1)
End Sub
