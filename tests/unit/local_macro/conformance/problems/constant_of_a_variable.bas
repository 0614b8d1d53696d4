' A constant can't be made from a variable.
'? 5:15 Constant expression required
Sub main()
    Dim n As Long
    Const a = n
End Sub
