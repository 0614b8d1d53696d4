' A Variant variable can't go by reference to a parameter of another type.
'? 6:10 ByRef argument type mismatch
Sub Fill(n As Long)
End Sub
Sub main()
    Fill x
End Sub
