' An If with a statement behind Then ends with its line, so End If has no block.
'? 5:5 End If without block If
Sub main()
    If x Then y = 1
    End If
End Sub
