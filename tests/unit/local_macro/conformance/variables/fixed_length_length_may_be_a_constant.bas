' The length of a String * n is a constant expression.
'> 5
Const kLength = 5
Dim held As String * kLength

Sub main()
    held = "x"
    Debug.Print Len(held) & ""
End Sub
