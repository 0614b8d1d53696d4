' Constants of the module stand before its first procedure, whether private or not.
'? 6:1 Only comments may appear after End Sub, End Function, or End Property
Function F() As Long
End Function
' a remark may stand here
Private Const kOne = 1
Sub main()
End Sub
