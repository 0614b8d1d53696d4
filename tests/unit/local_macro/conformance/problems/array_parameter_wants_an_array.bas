' An array parameter takes an array of its type.
'? 7:10 ByRef argument type mismatch
Sub work(a() As Long)
End Sub
Sub main()
    Dim n As Long
    work n
End Sub
