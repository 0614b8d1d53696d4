' The counter of a For is a variable of its own, not an element of an array.
'? 5:10 Expected: variable
Sub main()
    Dim a(3) As Long
    For a(1) = 1 To 3
    Next
End Sub
