' End If needs a block If.
'? 4:5 End If without block If
Sub main()
    End If
End Sub
