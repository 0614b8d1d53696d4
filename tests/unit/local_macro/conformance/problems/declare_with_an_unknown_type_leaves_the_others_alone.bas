' A Declare whose parameter has an unknown type is the one problem; other entries are called as they are declared.
'? 3:62 User-defined type not defined: LongPointer
Private Declare PtrSafe Function First Lib "one" (ByVal a As LongPointer) As Long
Private Declare PtrSafe Function Second Lib "two" (ByVal b As String) As Long
Sub main()
    If Second("x") = 1 Then Debug.Print "unreachable"
End Sub
