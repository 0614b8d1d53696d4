' One Const may hold several constants with and without types.
'> 1 x 2.5
Public Const a = 1, b As String = "x"
Private Const c# = 2.5
Sub main()
    Debug.Print a & " " & b & " " & c
End Sub
