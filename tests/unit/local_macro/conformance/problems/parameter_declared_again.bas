' A parameter is a variable of the procedure.
'? 4:9 Duplicate declaration in current scope: a
Sub work(a As Long)
    Dim a As Long
End Sub
Sub main()
End Sub
