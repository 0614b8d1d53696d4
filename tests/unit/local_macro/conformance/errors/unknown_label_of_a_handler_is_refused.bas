' The label of On Error GoTo stands in the same procedure.
'? 4:5 Label not defined: elsewhere
Sub main()
    On Error GoTo Elsewhere
End Sub
Sub Other()
Elsewhere:
End Sub
