' Declared functions stand before the first procedure.
'? 5:1 Only comments may appear after End Sub, End Function, or End Property
Sub main()
End Sub
Private Declare PtrSafe Sub Sleep Lib "kernel32" (ByVal n As Long)
