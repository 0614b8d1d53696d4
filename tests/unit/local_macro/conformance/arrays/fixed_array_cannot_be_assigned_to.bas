' A fixed array can't be the target of an assignment.
'? 6:5 Can't assign to array
Sub main()
    Dim a(3) As Long, b() As Long
    ReDim b(3)
    a = b
End Sub
