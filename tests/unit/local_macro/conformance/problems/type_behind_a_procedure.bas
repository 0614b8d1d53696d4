' Types are declared before the first procedure.
'? 5:1 Only comments may appear after End Sub, End Function, or End Property
Property Get P() As Long
End Property
Public Type T
    n As Long
End Type
Sub main()
End Sub
