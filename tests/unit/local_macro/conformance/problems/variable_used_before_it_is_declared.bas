' Without Option Explicit the first use declares a name, so a later Dim declares it again.
'? 5:9 Duplicate declaration in current scope: n
Sub main()
    n = 1
    Dim n As Long
End Sub
