' A procedure declares a name once, whatever its case.
'? 5:9 Duplicate declaration in current scope: Total
Sub main()
    Dim total As Long
    Dim Total As String
End Sub
