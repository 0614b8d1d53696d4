' While an element goes by reference to a procedure the array can't change its size.
'! 10 This array is fixed or temporarily locked
Dim list() As Long

Sub Grow(element As Long)
    ReDim list(9)
End Sub

Sub main()
    ReDim list(3)
    Grow list(1)
End Sub
