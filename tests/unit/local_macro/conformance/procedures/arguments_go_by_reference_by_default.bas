' Without ByVal a variable goes by reference: the procedure writes to the caller's variable.
'> 6
Sub Twice(n As Long)
    n = n * 2
End Sub

Sub main()
    Dim a As Long
    a = 3
    Twice a
    Debug.Print a & ""
End Sub
