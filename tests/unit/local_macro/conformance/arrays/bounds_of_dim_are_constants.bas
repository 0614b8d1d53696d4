' The bounds of a Dim are constant expressions; only ReDim takes variables.
'? 6:11 Constant expression required
Sub main()
    Dim n As Long
    n = 3
    Dim a(n) As Long
End Sub
