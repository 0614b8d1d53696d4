' EndIf in one word needs its If as well.
'? 4:5 End If without block If
Sub main()
    EndIf
End Sub
