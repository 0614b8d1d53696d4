' A ByVal parameter is a variable of its own.
'> 3
Sub Twice(ByVal n As Long)
    n = n * 2
End Sub

Sub main()
    Dim a As Long
    a = 3
    Twice a
    Debug.Print a & ""
End Sub
