' Variables of the module are declared before its first procedure.
'? 5:1 Only comments may appear after End Sub, End Function, or End Property
Sub main()
End Sub
Dim n As Long
