' The left operand of & was read when the function on the right changes the variable.
'> old+new
Dim s As String
Function Change() As String
    s = "changed"
    Change = "new"
End Function
Sub main()
    s = "old"
    s = s & "+" & Change()
    Debug.Print s
End Sub
