' A default is a constant.
'? 3:22 Constant expression required
Sub one(Optional a = Now())
End Sub
Sub main()
End Sub
