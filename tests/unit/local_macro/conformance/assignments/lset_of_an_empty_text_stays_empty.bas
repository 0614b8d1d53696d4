' A variable without characters has no room for LSet.
'> []
Sub main()
    Dim s As String
    LSet s = "abc"
    Debug.Print "[" & s & "]"
End Sub
