' ElseIf stands within a block If.
'? 4:5 Else without If
Sub main()
    ElseIf x Then
End Sub
