' An expression is no variable, so it is converted to the parameter's type.
'> 4 String
Sub Show(s As String)
    Debug.Print s & " " & TypeName(s)
End Sub

Sub main()
    Dim n As Long
    n = 3
    Show n + 1
End Sub
