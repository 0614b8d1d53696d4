' The variable of For Each is a Variant or an object.
'? 5:14 For Each control variable must be Variant or Object
Sub main()
    Dim n As Long
    For Each n In Array(1, 2)
    Next
End Sub
