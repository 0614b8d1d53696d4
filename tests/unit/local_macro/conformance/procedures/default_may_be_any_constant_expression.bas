' The default of an optional parameter is a constant expression, with named constants too.
'> 21 <>
Const kBase = 20

Sub Show(Optional n As Integer = kBase + 1, Optional s As String = "<" & ">")
    Debug.Print n & " " & s
End Sub

Sub main()
    Show
End Sub
