' Else stands within a block If.
'? 4:5 Else without If
Sub main()
    Else
End Sub
