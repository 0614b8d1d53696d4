' Options stand before the first procedure.
'? 5:1 Only comments may appear after End Sub, End Function, or End Property
Sub main()
End Sub
Option Explicit
