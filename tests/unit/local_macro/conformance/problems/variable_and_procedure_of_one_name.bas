' A module variable and a procedure can't share a name.
'? 4:5 Ambiguous name detected: work
Dim work As Long
Sub work()
End Sub
Sub main()
End Sub
