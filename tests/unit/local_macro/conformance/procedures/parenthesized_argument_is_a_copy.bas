' An argument in parentheses of its own is an expression: the variable stays as it is.
'> 3 6
Sub Twice(n As Long)
    n = n * 2
End Sub

Sub main()
    Dim a As Long
    a = 3
    Twice (a)
    Debug.Print a & " ";
    Call Twice(a)
    Debug.Print a & ""
End Sub
