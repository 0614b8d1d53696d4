' While a With block holds an element of an array, the array can't change its size.
'! 10 This array is fixed or temporarily locked
Type Thing
    n As Long
End Type

Sub main()
    Dim a() As Thing
    ReDim a(2)
    With a(1)
        ReDim a(5)
    End With
End Sub
